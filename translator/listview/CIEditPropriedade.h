// CIEditPropriedade: the editor of a text cell.
#pragma once

#include "platform/window/CEdit.h"
#include "translator/listview/CIListViewEditItem.h"

namespace ListView {

// Made over a cell; sends its text to the list when it loses the focus, by whatever means, and
// deletes itself with its window. There is no cancel.
class CIEditPropriedade : public CEdit, CIListViewEditItem {
    DECLARE_DYNAMIC(CIEditPropriedade)

  public:
    CIEditPropriedade(int32_t row, int32_t col, int32_t format, int32_t limit)
        : linha(row), coluna(col), formato(format), limite(limit) {}

    BOOL Create(CWnd* list, const TQString& text, const CRect& rect);
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnKillFocus(CWnd* next);
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

  private:
    bool Recusa(UINT character) const;

    int32_t linha, coluna;
    int32_t formato;
    int32_t limite;
};

}  // namespace ListView
