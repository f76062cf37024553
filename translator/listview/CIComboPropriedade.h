// CIComboPropriedade: the editor of a cell with fixed options.
#pragma once

#include "platform/window/CComboBox.h"
#include "translator/cad/TQStringList.h"
#include "translator/listview/CIListViewEditItem.h"

namespace ListView {

// Sends the index to the list at each choice and, for good, when it loses the focus; deletes itself
// with its window.
class CIComboPropriedade : public CComboBox, CIListViewEditItem {
    DECLARE_DYNAMIC(CIComboPropriedade)

  public:
    CIComboPropriedade(int32_t row, int32_t col) : linha(row), coluna(col) {}

    // False, without a window, for an empty list of values.
    BOOL Create(CWnd* list, const TQStringList& values, int32_t index, const CRect& rect);
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnSelChange();
    void OnKillFocus(CWnd* next);
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

  private:
    void Enviar(UINT message);

    int32_t linha, coluna;
};

}  // namespace ListView
