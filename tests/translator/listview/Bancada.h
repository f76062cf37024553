// A dialog with an editable list between two buttons, and a user's hands.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <string>
#include <vector>

#include "platform/window/AfxWin.h"
#include "platform/window/CButton.h"
#include "platform/window/CDialog.h"
#include "tests/support/ScriptedServices.h"
#include "translator/listview/CIListViewEdit.h"

namespace bancada {

inline constexpr UINT kAntes = 219, kLista = 221, kDepois = 220;

class Lista : public ListView::CIListViewEdit {
  public:
    using CIListViewEdit::editando;
    using CIListViewEdit::linhasSelecionadas;
    using CIListViewEdit::pastaAtual;
};

// Writes down what the parent and a listener hear, in order: "begin", "edited 0,1 text", "end".
class Dialogo : public CDialog, public ListView::ListViewEditListener {
  public:
    Dialogo();
    ~Dialogo() override;

    std::unique_ptr<Lista> lista = std::make_unique<Lista>();
    CButton antes, depois;
    std::vector<std::string> ouvido;
    std::function<void()> aoEditar;

    void OnCelulaEditada(int32_t row, int32_t col) override;
    void OnCelulaAcionada(int32_t row, int32_t col) override;
    void OnAntesDaCor(int32_t row, int32_t col) override;
    void OnDepoisDaCor(int32_t row, int32_t col) override;

  protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    DECLARE_MESSAGE_MAP()

  private:
    void Anotar(const char* what, int32_t row, int32_t col);
};

class Bancada : public testing::Test {
  protected:
    Bancada();  // two columns, the dialog shown and active

    // A row with a read-only name in column 0 and this cell in column 1.
    ListView::CIListViewPropriedadeItem* Linha(int32_t kind, const TQStringList& values,
                                               int32_t limit = 50, int32_t format = 1,
                                               int32_t index = 0);
    void LinhasDeTexto(int count);  // "0", "1", ...

    CWnd* Editor();  // the child of the list that has the focus, or null
    void Tecla(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void Digitar(const char* text);
    void Clicar(int32_t row, int32_t col, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void ClicarBotaoDoEditor();  // and wait until what it opens is done with
    static void Ativar(Dialogo& dialog);
    std::string Texto(int32_t row, int32_t col = 1);
    std::string TextoDoEditor();

    ScriptedServices services;
    Dialogo dialogo;
    Lista& lista = *dialogo.lista;
};

std::string Estreito(const CString& text);
TQStringList Valores(std::initializer_list<const char16_t*> texts);

}  // namespace bancada
