// A dialog with an editable list between two buttons, and a user's hands.
#include "tests/translator/listview/Bancada.h"

#include <QApplication>

#include "platform/text/Conversion.h"
#include "platform/window/CDataExchange.h"
#include "platform/window/qt/WindowHandle.h"
#include "translator/listview/CIListViewEditItem.h"
#include "translator/listview/MensagensLista.h"

namespace bancada {
namespace {

const DialogControl kControles[] = {
    {ControlKind::PushButton, kAntes, u"Before", 7, 7, 50, 14},
    {ControlKind::ListView, kLista, u"", 7, 25, 230, 100},
    {ControlKind::PushButton, kDepois, u"After", 7, 130, 50, 14},
};
const DialogTemplate kModelo = {901, u"Lista", 244, 150, WS_CAPTION | WS_THICKFRAME, kControles};
const DialogResource kRecurso(kModelo);

QWidget* ParaTeclas() {
    QWidget* popup = QApplication::activePopupWidget();
    QWidget* inPopup = popup ? popup->focusWidget() : nullptr;
    return inPopup ? inPopup : QApplication::focusWidget();
}

}  // namespace

BEGIN_MESSAGE_MAP(Dialogo, CDialog)
ON_WM_KEYDOWN()
END_MESSAGE_MAP()

Dialogo::Dialogo() {
    Create(kModelo.id);
    CDataExchange exchange(this, FALSE);
    DDX_Control(&exchange, kLista, *lista);
    DDX_Control(&exchange, kAntes, antes);
    DDX_Control(&exchange, kDepois, depois);
    lista->AddListener(this);
}

Dialogo::~Dialogo() { DestroyWindow(); }

void Dialogo::Anotar(const char* what, int32_t row, int32_t col) {
    if (!lista) return;  // being destroyed
    ouvido.push_back(std::string(what) + " " + std::to_string(row) + "," + std::to_string(col) +
                     " " + Estreito(lista->GetItemText(row, col)));
}

void Dialogo::OnCelulaEditada(int32_t row, int32_t col) {
    Anotar("edited", row, col);
    if (aoEditar) aoEditar();
}
void Dialogo::OnCelulaAcionada(int32_t row, int32_t col) { Anotar("action", row, col); }
void Dialogo::OnAntesDaCor(int32_t row, int32_t col) { Anotar("before", row, col); }
void Dialogo::OnDepoisDaCor(int32_t row, int32_t col) { Anotar("after", row, col); }

BOOL Dialogo::OnCommand(WPARAM wParam, LPARAM lParam) {
    const std::pair<UINT, const char*> names[] = {
        {ListView::WM_LIST_PROPRIEDADE_BEGINEDIT, "begin"},
        {ListView::WM_LIST_PROPRIEDADE_ENDEDIT, "end"},
        {ListView::WM_LIST_PROPRIEDADE_SELCHANGE, "selchange"},
    };
    for (const auto& [message, name] : names)
        if (lista && LOWORD(wParam) == kLista && HIWORD(wParam) == LOWORD(message) &&
            lParam == reinterpret_cast<LPARAM>(lista->m_hWnd))
            ouvido.push_back(name);
    return CDialog::OnCommand(wParam, lParam);
}

void Dialogo::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    ouvido.push_back("key " + std::to_string(key));
    CDialog::OnKeyDown(key, repeat, flags);
}

Bancada::Bancada() {
    lista.AddColumn(u"Name", 100, false);
    lista.AddColumn(u"Value", 120, false);
    Ativar(dialogo);
}

void Bancada::Ativar(Dialogo& dialog) {
    dialog.ShowWindow(SW_SHOW);
    WidgetOf(&dialog)->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(WidgetOf(&dialog)));
}

ListView::CIListViewPropriedadeItem* Bancada::Linha(int32_t kind, const TQStringList& values,
                                                    int32_t limit, int32_t format, int32_t index) {
    const int row = lista.GetItemCount();
    lista.AddItem(u"key", u"", TQString(u"name"), 50, ListView::TEXTO, 1, false, 0);
    return lista.SetSubItem(row, 1, u"key", u"", values, limit, kind, format, true, index);
}

void Bancada::LinhasDeTexto(int count) {
    for (int row = 0; row < count; ++row)
        Linha(ListView::TEXTO, TQStringList(std::vector{TQString(row, 0)}));
}

CWnd* Bancada::Editor() {
    CWnd* focus = CWnd::GetFocus();
    return focus && focus->m_hWnd != lista.m_hWnd && lista.IsChild(focus) ? focus : nullptr;
}

void Bancada::Tecla(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(ParaTeclas(), key, modifiers);
}

void Bancada::Digitar(const char* text) { QTest::keyClicks(ParaTeclas(), text); }

void Bancada::Clicar(int32_t row, int32_t col, Qt::KeyboardModifiers modifiers) {
    CRect label;
    ASSERT_TRUE(lista.GetSubItemRect(row, col, LVIR_LABEL, label));
    QWidget* client = HandleOf(WidgetOf(&lista))->client;
    const QPoint inList(label.CenterPoint().x, label.CenterPoint().y);
    const QPoint global = WidgetOf(&lista)->mapToGlobal(inList);
    QTest::mouseClick(client, Qt::LeftButton, modifiers, client->mapFromGlobal(global));
}

void Bancada::ClicarBotaoDoEditor() {
    QTest::mouseClick(WidgetOf(lista.GetDlgItem(ListView::kIdBotao)), Qt::LeftButton);
    Ativar(dialogo);
}

std::string Bancada::Texto(int32_t row, int32_t col) {
    return Estreito(lista.GetItemText(row, col));
}

std::string Bancada::TextoDoEditor() {
    CWnd* editor = Editor();
    return editor ? Estreito(editor->GetWindowText()) : "no editor";
}

std::string Estreito(const CString& text) { return text::NarrowFromWide(text.Text()); }

TQStringList Valores(std::initializer_list<const char16_t*> texts) {
    return TQStringList(std::vector<TQString>(texts.begin(), texts.end()));
}

}  // namespace bancada
