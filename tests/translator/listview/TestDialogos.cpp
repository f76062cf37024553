// The resizable dialog, the file dialog's two notations, and the windows of the host.
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include "platform/kernel/MxLispEngine.h"
#include "platform/window/CDC.h"
#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/listview/Bancada.h"
#include "translator/cad/ui/ParentWindow.h"
#include "translator/cad/ui/TQFileDialog.h"
#include "translator/listview/CIResizableDialog.h"

using namespace bancada;

namespace {

const DialogTemplate kModelo = {902, u"Grande", 300, 300, WS_CAPTION | WS_THICKFRAME, {}};
const DialogResource kRecurso(kModelo);

class Redimensionavel : public CIResizableDialog {
  public:
    Redimensionavel() : CIResizableDialog(kModelo.id, nullptr) {}
    ~Redimensionavel() override { DestroyWindow(); }
    using CIResizableDialog::dpi;

    CRect Dimensionar(CRect rect) {
        SendMessage(WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    CSize Tamanho() {
        CRect window;
        GetWindowRect(window);
        return window.Size();
    }
};

}  // namespace

TEST(CIResizableDialog, TheSmallestSizeHoldsFromTheSecondSizingOn) {
    Redimensionavel dialog;
    dialog.Create(kModelo.id);
    EXPECT_EQ(dialog.Dimensionar({50, 60, 150, 160}), CRect(50, 60, 150, 160));
    EXPECT_EQ(dialog.Dimensionar({50, 60, 140, 150}), CRect(50, 60, 500, 585));
    EXPECT_EQ(dialog.Dimensionar({60, 60, 700, 800}), CRect(60, 60, 700, 800));
    EXPECT_EQ(dialog.Dimensionar({600, 60, 700, 800}), CRect(60, 60, 700, 800))
        << "the last right is larger than left and smallest width";
    EXPECT_EQ(dialog.Dimensionar({0, 60, 700, 800}), CRect(0, 60, 700, 800));
    EXPECT_EQ(dialog.Dimensionar({0, 60, 10, 70}), CRect(0, 60, 10, 70))
        << "at the screen's edge nothing holds";
}

TEST(CIResizableDialog, FollowsTheDpi) {
    struct Volta {
        ~Volta() { SetDeviceDpi(96); }
    } back;
    Redimensionavel normal;
    normal.Create(kModelo.id);
    EXPECT_EQ(normal.dpi, 96);
    SetDeviceDpi(192);
    Redimensionavel twice;
    twice.Create(kModelo.id);
    EXPECT_EQ(twice.dpi, 192);
    EXPECT_EQ(twice.Tamanho(), CSize(normal.Tamanho().cx * 2, normal.Tamanho().cy * 2));
    twice.SendMessage(WM_DPICHANGED, MAKEWPARAM(96, 96));
    EXPECT_EQ(twice.Tamanho(), normal.Tamanho());
}

TEST(TQFileDialog, RewritesTheFilter) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"Drawings|*.dwg||", u"Drawings( *.dwg );;"},
        {u"Table (*.csv)|*.csv||", u"Table (*.csv);;"},
        {u"", u""},
        {u"alone", u""},
        {u"a|*.a|b", u"a( *.a );;"},
        {u"half(|*.a;*.b|c|*.c", u"half(( *.a;*.b );;c( *.c );;"},
    };
    for (const auto& [given, expected] : cases) EXPECT_EQ(FiltroQt(given), expected);
}

TEST(TQFileDialog, GivesBackslashesAndLogsWhatQtGave) {
    ScriptedServices services;
    QWidget main;
    main.show();
    services.mainWidget = &main;
    TQString result = u"former";
    QTimer::singleShot(0, [&] {
        auto* box = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        EXPECT_EQ(box->parentWidget(), &main);
        EXPECT_EQ(box->acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(box->windowTitle(), "Title");
        box->findChild<QLineEdit*>("fileNameEdit")->setText("/nowhere/x.csv");
        QMetaObject::invokeMethod(box, "accept");
    });
    EXPECT_EQ(TQFileDialog(result, false, u"T|*.csv||", u"/", u"Title"), kLispNormal);
    EXPECT_EQ(result, u"\\nowhere\\x.csv");
    QTimer::singleShot(
        0, [] { qobject_cast<QFileDialog*>(QApplication::activeModalWidget())->reject(); });
    EXPECT_EQ(TQFileDialog(result, true, u"", u"", u""), kLispCancelled);
    EXPECT_TRUE(result.IsEmpty());
    EXPECT_EQ(services.log, (std::vector<std::string>{
                                "SAVE file dialog, filter=T|*.csv||, path=/",
                                "File dialog result: /nowhere/x.csv",
                                "OPEN file dialog, filter=, path=", "File dialog result: "}));
}

TEST(TQFileDialog, AFailureIsLoggedAndGoesOn) {
    class WithoutWindows : public ScriptedServices {
        CMxMainWindowService* GetMainWindowService() override {
            throw std::runtime_error("no windows");
        }
    } services;
    TQString result;
    EXPECT_THROW(TQFileDialog(result, true, u"", u"", u""), std::runtime_error);
    EXPECT_EQ(services.log, (std::vector<std::string>{"OPEN file dialog, filter=, path=",
                                                      "TQFileDialog : no windows"}));
}

TEST(ParentWindow, IsThatOfTheThreadOrOfTheHost) {
    EXPECT_EQ(ParentWindow(), nullptr);
    ScriptedServices services;
    EXPECT_EQ(ParentWindow(), nullptr);
    QWidget main;
    main.setWindowTitle("Main");
    services.mainWidget = &main;
    ASSERT_NE(ParentWindow(), nullptr);
    EXPECT_EQ(WidgetOf(ParentWindow()), &main);
    EXPECT_EQ(FromWindow(ParentWindow()->m_hWnd), u"Main");
    EXPECT_EQ(FromWindow(nullptr), u"");
    Redimensionavel dialog;
    AfxGetThread()->m_pMainWnd = &dialog;
    EXPECT_EQ(ParentWindow(), &dialog);
    AfxGetThread()->m_pMainWnd = nullptr;
}
