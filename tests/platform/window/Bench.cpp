// The dialog of the tests and the ways to press its keys.
#include "tests/platform/window/Bench.h"

#include <QApplication>

namespace {

const DialogControl CONTROLS[] = {
    {ControlKind::EditText, 10, u"", 7, 17, 80, 12},
    {ControlKind::EditText, 11, u"", 7, 33, 80, 12},
    {ControlKind::PushButton, 12, u"&Go", 7, 49, 50, 14},
    {ControlKind::AutoCheckBox, 13, u"Check", 60, 49, 50, 10},
    {ControlKind::LeftText, 20, u"&Colour:", 100, 8, 60, 8},
    {ControlKind::DropDownList, 14, u"", 100, 17, 60, 60},
    {ControlKind::EditText, 15, u"", 100, 33, 60, 12, WS_DISABLED},
    {ControlKind::PushButton, 16, u"Hidden", 120, 49, 40, 14},
};
const DialogTemplate TABLE{BENCH_TEMPLATE, u"Bench", 180, 80, WS_POPUP | WS_CAPTION | WS_THICKFRAME,
                           CONTROLS};
const DialogResource RESOURCE(TABLE);

}  // namespace

IMPLEMENT_DYNAMIC(BenchDialog, CDialog)
BEGIN_MESSAGE_MAP(BenchDialog, CDialog)
ON_BN_CLICKED(12, &BenchDialog::OnGo)
ON_EN_KILLFOCUS(10, &BenchDialog::OnFirstLost)
ON_EN_CHANGE(10, &BenchDialog::OnFirstChanged)
ON_WM_SIZE()
ON_WM_SIZING()
ON_WM_DESTROY()
ON_MESSAGE(WM_APP, &BenchDialog::OnPosted)
END_MESSAGE_MAP()

int BenchDialog::Run(std::function<void()> work) {
    WhenIdle([this, work = std::move(work)] {
        Activate(*this);
        work();
    });
    return DoModal();
}

BOOL BenchDialog::OnInitDialog() {
    log.push_back("init");
    CDialog::OnInitDialog();
    GetDlgItem(16)->ShowWindow(SW_HIDE);
    if (onInit) onInit();
    return TRUE;
}

void BenchDialog::DoDataExchange(CDataExchange* exchange) {
    log.push_back(exchange->m_bSaveAndValidate ? "save" : "load");
    DDX_Control(exchange, 10, first);
}

void BenchDialog::OnGo() {
    log.push_back("go");
    if (onGo) onGo();
}

void BenchDialog::OnSize(UINT type, int cx, int cy) {
    CDialog::OnSize(type, cx, cy);
    if (logSizes) log.push_back("size " + std::to_string(cx) + "x" + std::to_string(cy));
}

void BenchDialog::OnSizing(UINT side, LPRECT rect) {
    if (onSizing) onSizing(side, rect);
    CDialog::OnSizing(side, rect);
}

void BenchDialog::OnDestroy() {
    log.push_back("destroy");
    CDialog::OnDestroy();
}

LRESULT BenchDialog::OnPosted(WPARAM wParam, LPARAM) {
    log.push_back("posted " + std::to_string(wParam));
    return static_cast<LRESULT>(wParam) + 1;
}

void BenchDialog::OnOK() {
    log.push_back("OK");
    CDialog::OnOK();
}

void BenchDialog::OnCancel() {
    log.push_back("Cancel");
    CDialog::OnCancel();
}

void Activate(CWnd& window) {
    const QPointer<QWidget> widget = WidgetOf(&window);
    for (int round = 0; widget && !widget->isActiveWindow() && round < 1000; ++round)
        QCoreApplication::processEvents();
}

void WhenIdle(std::function<void()> work) { QTimer::singleShot(0, qApp, std::move(work)); }

void Settle() {
    for (int round = 0; round < 5; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

QWidget* WidgetOfControl(CWnd& dialog, int id) { return WidgetOf(dialog.GetDlgItem(id)); }

void Press(CWnd& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(WidgetOf(&window), key, modifiers);
}

void PressFocused(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
}

void Type(CWnd& window, const char* text) { QTest::keyClicks(WidgetOf(&window), text); }
