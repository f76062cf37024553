// What the dialogs' controls have in common.
#include "translator/dialogs/ui/Controles.h"

#include "translator/dialogs/ui/Mensagens.h"

void PorTextos(CWnd& janela, std::span<const TextoDeControle> textos) {
    for (const auto& [id, mensagem] : textos) {
        janela.GetDlgItem(id)->SetWindowText(Mensagem(mensagem));
    }
}

bool EmUso(const traducaoTQ::IBDIdiomas::structIdioma& idioma) { return idioma.use == u"1"; }

std::optional<TQString> TextoDe(const CComboBox& lista, int posicao) {
    if (posicao < 0 || posicao >= lista.GetCount()) return std::nullopt;
    CString texto;
    lista.GetLBText(posicao, texto);
    return TQString(texto);
}

std::optional<TQString> Selecionado(const CComboBox& lista) {
    return TextoDe(lista, lista.GetCurSel());
}

void ApagarColunas(CListCtrl& lista) {
    while (lista.DeleteColumn(0)) {
    }
}

void DefinirAlturaDasLinhas(CListCtrl& lista) {
    constexpr int kLargura = 1, kAltura = 16;
    CImageList altura;
    altura.Create(kLargura, kAltura, ILC_COLOR, 0, 0);
    for (const int tipo : {LVSIL_NORMAL, LVSIL_SMALL, LVSIL_STATE}) {
        lista.SetImageList(&altura, tipo);
    }
}
