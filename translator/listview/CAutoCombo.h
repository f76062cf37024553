// CAutoCombo: an owner-drawn combo whose entries can bear a second text at the right.
#pragma once

#include <deque>

#include "platform/window/CComboBox.h"
#include "translator/cad/TQString.h"

namespace ListView {

class CAutoCombo : public CComboBox {
    DECLARE_DYNAMIC(CAutoCombo)

  public:
    CAutoCombo();

    bool comDescricao = false;  // second texts are kept and drawn

    // Copies both; second may be null. The index of the entry.
    int AddEntry(int index, const TQString& text, const TQString* second);
    void DrawItem(LPDRAWITEMSTRUCT item) override;

  protected:
    int indiceAtual = -1;  // the entry present when the combo was filled

  private:
    void DesenharTextos(CDC& dc, const CRect& rect, const CString& text, const TQString* second,
                        bool selected) const;

    COLORREF fundoSelecionado, textoSelecionado, fundo, texto, textoDescricao;
    CFont fonte;                      // as long as an item is drawn
    std::deque<TQString> descricoes;  // item data points at these
};

}  // namespace ListView
