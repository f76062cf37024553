// The lines on their way from and to the database and the drawing.
#include "translator/dialogs/AcoesSobreLinhas.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "translator/engine/RegistrosTraducao.h"

namespace traducaoTQ {

namespace {

using structIdioma = IBDIdiomas::structIdioma;
using structTermo = IBDIdiomas::structTermo;

// 0 is read as NaoTraduzido.
bool TemTraducao(const structExpressao& linha) {
    return linha.estado & (Automatica | Manual | Importado);
}

size_t ColunasDeTermo(const std::vector<structIdioma>& idiomas) {
    return static_cast<size_t>(std::count_if(
        idiomas.begin(), idiomas.end(), [](const auto& idioma) { return idioma.use == u"1"; }));
}

// A term without a row: its source column has the original, the others are empty.
structTermo NovoTermo(const structExpressao& linha, size_t idiomasEmUso, size_t colunaOrigem) {
    structTermo termo;
    termo.translations.resize(idiomasEmUso);
    termo.translations.at(colunaOrigem) = linha.original;
    return termo;
}

structTermo& TermoDe(structExpressao& linha, size_t idiomasEmUso, size_t colunaOrigem,
                     TermosFeitos& feitos) {
    if (!linha.termo) {
        feitos.push_back(NovoTermo(linha, idiomasEmUso, colunaOrigem));
        linha.termo = &feitos.back();
    }
    return *linha.termo;
}

}  // namespace

bool GarantirDicionario(ITabelaExpressoes& tabela) {
    if (tabela.traducoes) return false;
    tabela.traducoes = IBDIdiomas().GetTerms();
    return tabela.traducoes != nullptr;
}

void AtualizarColuna(ITabelaExpressoes& tabela, const IBDIdiomas::structTraducoes* novos,
                     size_t comparada, size_t copiada) {
    if (!novos || !tabela.traducoes || tabela.traducoes->terms.empty()) return;
    std::unordered_map<std::u16string_view, const structTermo*> primeiros;
    primeiros.reserve(novos->terms.size());
    for (const structTermo& novo : novos->terms) {
        primeiros.emplace(novo.translations.at(comparada), &novo);
    }
    for (structTermo& termo : tabela.traducoes->terms) {
        const auto achado = primeiros.find(termo.translations.at(comparada));
        if (achado == primeiros.end()) continue;
        termo.translations.at(copiada) = achado->second->translations.at(copiada);
    }
}

void CarregarDicionarioProjeto(ITabelaExpressoes& tabela, const std::vector<ETraduzivel*>& objetos,
                               const TQString& idiomaProjeto) {
    // The dictionary before goes when no line points into it any more.
    const auto antigas =
        std::exchange(tabela.traducoes, GetProjectTerms(objetos, CString(idiomaProjeto)));
    tabela.AgruparExpressoes(objetos);
}

void RegistrarNoDesenho(ITabelaExpressoes& tabela, structColunas colunas,
                        const std::vector<structIdioma>& idiomas, TermosFeitos& feitos) {
    const size_t emUso = ColunasDeTermo(idiomas);
    for (const auto& linha : *tabela.expressoes) {
        if (!TemTraducao(*linha)) continue;
        linha->estado = Automatica;
        structTermo& termo = TermoDe(*linha, emUso, colunas.origem, feitos);
        termo.translations.at(colunas.destino) = linha->traducao;
        for (const ETraduzivel* objeto : linha->objetos) {
            SaveTermRecords(objeto->GetChave(), termo, idiomas);
        }
    }
}

void GravarNoBanco(ITabelaExpressoes& tabela, structColunas colunas,
                   const std::vector<structIdioma>& idiomas, TermosFeitos& feitos) {
    const size_t emUso = ColunasDeTermo(idiomas);
    for (const auto& linha : *tabela.expressoes) {
        if (!(linha->estado & (Manual | Importado))) continue;
        linha->estado = Automatica;
        structTermo& termo = TermoDe(*linha, emUso, colunas.origem, feitos);
        TQString& texto = termo.translations.at(colunas.destino);
        if (texto == linha->traducao) continue;
        texto = linha->traducao;
        IBDIdiomas().SaveTerm(termo);
    }
}

bool TemTraducao(const ITabelaExpressoes& tabela) {
    return tabela.expressoes && std::any_of(tabela.expressoes->begin(), tabela.expressoes->end(),
                                            [](const auto& linha) { return TemTraducao(*linha); });
}

void SubstituirTextos(const ITabelaExpressoes& tabela) {
    if (!tabela.expressoes) return;
    for (const auto& linha : *tabela.expressoes) {
        if (!TemTraducao(*linha) || linha->traducao.empty()) continue;
        for (ETraduzivel* objeto : linha->objetos) objeto->SetTexto(linha->traducao);
    }
}

}  // namespace traducaoTQ
