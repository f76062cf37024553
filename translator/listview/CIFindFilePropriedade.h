// CIFindFilePropriedade: the editor of a file cell, a field with a button that asks for a file.
#pragma once

#include <memory>

#include "platform/window/CBitmapButton.h"
#include "platform/window/CEdit.h"
#include "translator/listview/CIListViewEditItem.h"

namespace ListView {

class CIFindFilePropriedade;

class CIBtFindFile : public CBitmapButton {
    DECLARE_DYNAMIC(CIBtFindFile)

  public:
    CIBtFindFile(CIFindFilePropriedade& editor, const TQString& folder, bool fullPath)
        : editor(editor), pasta(folder), caminhoCompleto(fullPath) {}

  protected:
    void OnClick();
    void OnKillFocus(CWnd* next);
    DECLARE_MESSAGE_MAP()

  private:
    CIFindFilePropriedade& editor;
    TQString pasta;
    bool caminhoCompleto;
    bool perguntando = false;  // the focus that the file dialog takes is no loss for the editor
};

// The button stands in the last 20 pixels of the cell and belongs to the editor. The text goes to
// the list uncut, which refuses one that is too long.
class CIFindFilePropriedade : public CEdit, CIListViewEditItem {
    DECLARE_DYNAMIC(CIFindFilePropriedade)

  public:
    CIFindFilePropriedade(int32_t row, int32_t col, int32_t limit, bool fullPath,
                          const TQString& folder)
        : linha(row), coluna(col), limite(limit), caminhoCompleto(fullPath), pasta(folder) {}

    BOOL Create(CWnd* list, const TQString& text, const CRect& rect);
    BOOL PreTranslateMessage(MSG* message) override;

    void Terminar();  // sends the text and destroys the window

  protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

  private:
    int32_t linha, coluna;
    std::unique_ptr<CIBtFindFile> botao;
    int32_t limite;
    bool caminhoCompleto;
    TQString pasta;
};

}  // namespace ListView
