// The list of the project translation dialog: filling, filters, sorting, the edit of a cell.
#include <algorithm>

#include "translator/dialogs/ui/CelulaDeTexto.h"
#include "translator/dialogs/ui/Controles.h"
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/dialogs/ui/Mensagens.h"
#include "translator/dialogs/ui/OrdemDeLista.h"

using traducaoTQ::structExpressao;

namespace {

constexpr int kColunaEstado = 0, kColunaOriginal = 1, kColunaDestino = 2;
constexpr int kLarguraEstado = 100, kLarguraTexto = 250;
constexpr int kLimiteEstado = 50, kLimiteTexto = 250;

// One direction for all columns and dialogs: each click on any header turns it round.
bool ordemCrescente = false;
CListCtrl* listaOrdenada = nullptr;

}  // namespace

uint32_t ITradutorProj::MascaraFiltro() const {
    uint32_t mascara = 0;
    if (filtroImportado.GetCheck() == BST_CHECKED) mascara += traducaoTQ::Importado;
    if (filtroNaoTraduzido.GetCheck() == BST_CHECKED) mascara += traducaoTQ::NaoTraduzido;
    if (filtroAutomatica.GetCheck() == BST_CHECKED) mascara += traducaoTQ::Automatica;
    if (filtroManual.GetCheck() == BST_CHECKED) mascara += traducaoTQ::Manual;
    return mascara;
}

void ITradutorProj::PreencherLista(bool novasColunas) {
    if (!expressoes) return;
    AtualizarDasListas();
    lista.DeleteAllItems();
    if (novasColunas) {
        ApagarColunas(lista);
        lista.AddColumn(tituloEstado, kLarguraEstado, false);
        lista.AddColumn(tituloOriginal, kLarguraTexto, false);
        lista.AddColumn(tituloDestino, kLarguraTexto, false);
    }
    const uint32_t mascara = MascaraFiltro();
    int linha = 0;
    for (const auto& expressao : *expressoes) {
        if (expressao->estado & mascara) AcrescentarLinha(linha++, *expressao);
    }
    PreencherDestino();
}

void ITradutorProj::AcrescentarLinha(int linha, const structExpressao& expressao) {
    const TQString& original = expressao.original;
    lista.AddItem(original, u"", u"", kLimiteEstado, kCelulaTexto, kFormatoLivre, false, 0);
    lista.SetSubItem(linha, kColunaOriginal, original, u"", original, kLimiteTexto, kCelulaTexto,
                     kFormatoLivre, false, 0);
    lista.SetSubItem(linha, kColunaDestino, original, u"", u"", kLimiteTexto, kCelulaTexto,
                     kFormatoLivre, false, 0);
    lista.SetItemText(linha, kColunaEstado, expressao.rotuloEstado);
}

// The rows are addressed by their running number among the lines shown. In a list that has been
// sorted since, these are other lines' rows until the next PreencherLista; this is meant.
void ITradutorProj::PreencherDestino() {
    if (lista.GetHeaderCtrl()->GetItemCount() > kColunaDestino) lista.DeleteColumn(kColunaDestino);
    if (!expressoes || expressoes->empty() || listaDestino.GetCurSel() == CB_ERR) return;
    lista.AddColumn(Selecionado(listaDestino).value_or(u"Destino"), kLarguraTexto, false);
    const uint32_t mascara = MascaraFiltro();
    int linha = 0;
    for (const auto& expressao : *expressoes) {
        if (!(expressao->estado & mascara)) continue;
        // The cell's value, not its text alone: an editor opens with it.
        lista.SetValor(linha, kColunaEstado, expressao->rotuloEstado);
        lista.SetValor(linha, kColunaDestino, expressao->traducao);
        lista.SetEditavel(linha, kColunaDestino, true);
        ++linha;
    }
}

void ITradutorProj::OnFiltro() { PreencherLista(false); }

// Rows are found back by the original text, since the list may be sorted and filtered.
void ITradutorProj::OnCelulaEditada(int linha, int coluna) {
    const TQString novo = lista.GetItemText(linha, coluna);
    const TQString original = lista.GetItemText(linha, kColunaOriginal);
    if (!expressoes) return;
    const auto achada = std::find_if(expressoes->begin(), expressoes->end(),
                                     [&](const auto& e) { return e->original == original; });
    if (achada == expressoes->end()) return;
    structExpressao& expressao = **achada;
    if (expressao.traducao == novo) return;
    expressao.traducao = novo;
    expressao.estado = traducaoTQ::Manual;
    expressao.rotuloEstado = rotuloManual;
    lista.SetItemText(linha, kColunaEstado, expressao.rotuloEstado);
}

void ITradutorProj::OnColunaClicada(NMHDR* aviso, LRESULT* resultado) {
    ordemCrescente = !ordemCrescente;
    listaOrdenada = &lista;
    OrdenarPorColuna(lista, CompararLinhas, reinterpret_cast<NMLISTVIEW*>(aviso)->iSubItem);
    *resultado = 0;
}

int ITradutorProj::CompararLinhas(LPARAM a, LPARAM b, LPARAM) {
    return CompararTextos(*listaOrdenada, a, b, ordemCrescente);
}
