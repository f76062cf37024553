// CIEditComboPropriedade: the editor of a cell of free text with proposals.
#pragma once

#include "translator/cad/TQStringList.h"
#include "translator/listview/CAutoCombo.h"
#include "translator/listview/CIListViewEditItem.h"

namespace ListView {

struct CIListViewPropriedadeItem;

// The text typed last goes to the head of the cell's proposals. Sends the index to the list when it
// loses the focus and deletes itself with its window.
class CIEditComboPropriedade : public CAutoCombo, CIListViewEditItem {
    DECLARE_DYNAMIC(CIEditComboPropriedade)

  public:
    CIEditComboPropriedade(int32_t row, int32_t col, int32_t limit, bool keepFirst)
        : linha(row), coluna(col), limite(limit), manterPrimeiro(keepFirst) {}

    BOOL Create(CWnd* list, const TQStringList& values, const TQStringList& complements,
                int32_t index, const CRect& rect);
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    int OnCreate(LPCREATESTRUCT create);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnFocoPerdido();
    void PostNcDestroy() override { delete this; }
    DECLARE_MESSAGE_MAP()

  private:
    int32_t IndiceNoCombo(const TQString& text) const;
    int32_t GuardarNaCelula(CIListViewPropriedadeItem& cell, const TQString& text);

    int32_t linha, coluna;
    int32_t limite;
    bool manterPrimeiro;
};

}  // namespace ListView
