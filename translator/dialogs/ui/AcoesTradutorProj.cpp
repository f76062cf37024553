// What the buttons of the project translation dialog do, but for the exchange of files.
#include <algorithm>

#include "platform/kernel/MxMessageBox.h"
#include "translator/cad/CICad.h"
#include "translator/dialogs/AcoesSobreLinhas.h"
#include "translator/dialogs/ui/Controles.h"
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/dialogs/ui/Mensagens.h"

using traducaoTQ::structColunas;

namespace {

std::optional<size_t> PosicaoDe(const std::vector<TQString>& nomes, const TQString& nome) {
    const auto achado = std::find(nomes.begin(), nomes.end(), nome);
    if (achado == nomes.end()) return std::nullopt;
    return static_cast<size_t>(achado - nomes.begin());
}

}  // namespace

void ITradutorProj::CarregarDicionario() {
    if (!traducoes) {
        traducaoTQ::GarantirDicionario(*this);
    } else {
        // Read before anything else, also when there is nothing to do with it.
        const auto novos = traducaoTQ::IBDIdiomas().GetTerms();
        const int selecao = listaDestino.GetCurSel();
        if (selecao == CB_ERR) return;
        // Both numbers count other lists than the columns do: one all languages, one those of the
        // target list, which lacks the source. They are taken as they stand; this is meant.
        traducaoTQ::AtualizarColuna(*this, novos.get(), static_cast<size_t>(indiceIdiomaProjeto),
                                    static_cast<size_t>(selecao));
    }
    AtualizarDasListas();
    PreencherDestino();
    alterado = true;
}

void ITradutorProj::CarregarDicionarioProjeto() {
    if (!objetos || idiomaProjeto.EqualsNoCase(u"-1")) return;
    traducaoTQ::CarregarDicionarioProjeto(*this, *objetos, idiomaProjeto);
    AtualizarDasListas();
    PreencherDestino();
}

std::optional<structColunas> ITradutorProj::ColunasDe(
    const std::optional<TQString>& origem, const std::optional<TQString>& destino) const {
    if (!traducoes || !origem || !destino) return std::nullopt;
    const auto colunaOrigem = PosicaoDe(traducoes->languages, *origem);
    const auto colunaDestino = PosicaoDe(traducoes->languages, *destino);
    if (!colunaOrigem || !colunaDestino) return std::nullopt;
    return structColunas{*colunaOrigem, *colunaDestino};
}

std::optional<structColunas> ITradutorProj::ColunasDoProjeto() const {
    // The source is read from the target list, at the position selected in the source list. The
    // lists differ by the source language, so it is as a rule another one's column; this is meant.
    const int posicao = listaOrigem.GetCurSel();
    return ColunasDe(posicao == CB_ERR ? std::nullopt : TextoDe(listaDestino, posicao),
                     Selecionado(listaDestino));
}

bool ITradutorProj::TemIdiomaEmUso() const {
    return std::any_of(idiomas.begin(), idiomas.end(), EmUso);
}

void ITradutorProj::SalvarDicionarioProjeto(bool silencioso) {
    traducaoTQ::GarantirDicionario(*this);
    if (!expressoes) return;
    const auto colunas = ColunasDoProjeto();
    if (colunas && TemIdiomaEmUso()) {
        traducaoTQ::RegistrarNoDesenho(*this, *colunas, idiomas, termosFeitos);
    }
    if (!silencioso) Avisar(avisoSalvo);
    alterado = false;
}

// The target's column is its position in the source list, which names the languages in use in the
// order of the dictionary.
std::optional<structColunas> ITradutorProj::ColunasDoDicionario() const {
    const auto origem = Selecionado(listaOrigem);
    const auto destino = Selecionado(listaDestino);
    if (!traducoes || !origem || !destino) return std::nullopt;
    const auto colunaOrigem = PosicaoDe(traducoes->languages, *origem);
    for (int posicao = 0; colunaOrigem && posicao < listaOrigem.GetCount(); ++posicao) {
        if (TextoDe(listaOrigem, posicao) == destino) {
            return structColunas{*colunaOrigem, static_cast<size_t>(posicao)};
        }
    }
    return std::nullopt;
}

void ITradutorProj::SalvarDicionario(bool silencioso) {
    const bool carregado = traducaoTQ::GarantirDicionario(*this);
    if (!expressoes) return;
    const auto colunas = ColunasDoDicionario();
    if (colunas && TemIdiomaEmUso()) {
        traducaoTQ::GravarNoBanco(*this, *colunas, idiomas, termosFeitos);
        if (carregado) traducoes.reset();
    }
    if (!silencioso) Avisar(avisoSalvo);
    alterado = false;
}

void ITradutorProj::Traduzir() {
    if (!expressoes) return;
    if (alterado || traducaoTQ::TemTraducao(*this)) SalvarDicionarioProjeto(true);
    EndDialog(IniciarAssistente);
}

void ITradutorProj::Substituir() {
    traducaoTQ::SubstituirTextos(*this);
    projetoLido = false;
    DesabilitarTrabalho();
    lista.DeleteAllItems();
    if (traducaoTQ::TemTraducao(*this) &&
        Perguntar(perguntaSalvar, kButtonYes + kButtonNo) == kButtonYes) {
        SalvarDicionarioProjeto(false);
    }
    expressoes.reset();
    tq::CICad().Regen();
}

void ITradutorProj::Fechar() {
    const bool temLinhas = expressoes && !expressoes->empty();
    if (temLinhas && (alterado || traducaoTQ::TemTraducao(*this))) {
        const int resposta = Perguntar(perguntaSalvar, kButtonYes + kButtonNo + kButtonCancel);
        if (resposta == kButtonCancel) return;
        if (resposta == kButtonYes) {
            // The records come first and leave no typed line for the dictionary; this is meant.
            SalvarDicionarioProjeto(true);
            SalvarDicionario(true);
            Avisar(avisoSalvo);
        }
    }
    EndDialog(Fechado);
}

void ITradutorProj::Ler() {
    EndDialog(LerDeNovo);
    expressoes.reset();
}
