// CIColorPropriedade: the editor of a colour cell, a coloured field with a button for the picker.
#pragma once

#include <memory>

#include "platform/window/CBitmapButton.h"
#include "platform/window/CBrush.h"
#include "platform/window/CEdit.h"
#include "translator/listview/CIListViewEditItem.h"

namespace ListView {

class CIColorPropriedade;
class CIListViewEdit;

class CIBtColor : public CBitmapButton {
    DECLARE_DYNAMIC(CIBtColor)

  public:
    CIBtColor(CIColorPropriedade& editor, CIListViewEdit& list, int32_t row, int32_t col)
        : editor(editor), lista(list), linha(row), coluna(col) {}

  protected:
    void OnClick();
    void OnKillFocus(CWnd* next);
    DECLARE_MESSAGE_MAP()

  private:
    // Shows the picker of the active document; true with the number in valor.
    bool Perguntar(CWnd* dialog);

    CIColorPropriedade& editor;
    CIListViewEdit& lista;
    TQString valor;  // the number in the field when it was last read
    int32_t linha, coluna;
    bool perguntando = false;  // the focus that the picker takes is no loss for the editor
};

// Sends its text to the list when it loses the focus and deletes itself with its window.
class CIColorPropriedade : public CEdit, CIListViewEditItem {
    DECLARE_DYNAMIC(CIColorPropriedade)

  public:
    CIColorPropriedade(int32_t row, int32_t col) : linha(row), coluna(col) {}

    BOOL Create(CIListViewEdit* list, const TQString& text, const CRect& rect);
    BOOL PreTranslateMessage(MSG* message) override;

    void AtualizarCor();  // from the text, and repaints
    void Terminar();      // sends the text and destroys the window

  protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    void OnPaint();
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

  private:
    int32_t linha, coluna;
    std::unique_ptr<CIBtColor> botao;
    CBrush pincel;
    COLORREF corDaCelula = 0;
};

}  // namespace ListView
