// Grouping of objects into lines, and matching of lines with the dictionary in memory. Both are
// indexed by the text, so that they grow with the objects and terms and not with their product.
#include "translator/dialogs/ITabelaExpressoes.h"

#include <algorithm>
#include <numeric>
#include <span>

#include "translator/dialogs/IndiceTextos.h"

namespace traducaoTQ {

namespace {

using structTermo = IBDIdiomas::structTermo;

std::optional<size_t> PosicaoDe(const std::vector<TQString>& nomes, const TQString& nome) {
    const auto achado = std::find(nomes.begin(), nomes.end(), nome);
    if (achado == nomes.end()) return std::nullopt;
    return static_cast<size_t>(achado - nomes.begin());
}

// The texts of that column; primeiros becomes the first term of each.
IndiceTextos IndiceDosTermos(std::vector<structTermo>& termos, size_t coluna,
                             std::vector<structTermo*>& primeiros) {
    IndiceTextos::Vistas textos;
    textos.reserve(termos.size());
    for (const structTermo& termo : termos) textos.emplace_back(termo.translations.at(coluna));
    std::vector<uint32_t> numeros;
    IndiceTextos indice(textos, numeros);
    for (size_t i = 0; i < numeros.size(); ++i) {
        if (numeros[i] == primeiros.size()) primeiros.push_back(&termos[i]);
    }
    return indice;
}

// The term of each line: the first one that has the line's text in that column, or null.
std::vector<structTermo*> TermosDasLinhas(const ITabelaExpressoes::ListaExpressoes& linhas,
                                          std::vector<structTermo>& termos, size_t coluna) {
    std::vector<structTermo*> primeiros;
    const IndiceTextos indice = IndiceDosTermos(termos, coluna, primeiros);
    std::vector<structTermo*> achados;
    achados.reserve(linhas.size());
    // A part of the lines at a time: this is where the most memory is in use.
    constexpr size_t kParte = 16384;
    for (size_t inicio = 0; inicio < linhas.size(); inicio += kParte) {
        IndiceTextos::Vistas originais;
        for (size_t i = inicio; i < std::min(inicio + kParte, linhas.size()); ++i) {
            originais.emplace_back(linhas[i]->original);
        }
        for (uint32_t numero : indice.Procurar(originais)) {
            achados.push_back(numero == IndiceTextos::kNenhum ? nullptr : primeiros[numero]);
        }
    }
    return achados;
}

// The line of each object; how many lines there are. What it takes to find out is gone before the
// lines are made.
size_t NumerarTextos(const std::vector<ETraduzivel*>& objetos, std::vector<uint32_t>& linhas) {
    IndiceTextos::Vistas textos;
    textos.reserve(objetos.size());
    for (const ETraduzivel* objeto : objetos) textos.push_back(*objeto->GetTexto());
    return IndiceTextos(textos, linhas).Quantidade();
}

// The objects of each line side by side, in scan order.
class ObjetosPorLinha {
  public:
    explicit ObjetosPorLinha(const std::vector<ETraduzivel*>& objetos)
        : ordenados(objetos.size() + kDistancia) {  // so that fetching ahead finds no end
        std::vector<uint32_t> linhas;
        fins.resize(NumerarTextos(objetos, linhas));
        for (uint32_t linha : linhas) ++fins[linha];
        std::exclusive_scan(fins.begin(), fins.end(), fins.begin(), uint32_t{0});
        for (size_t i = 0; i < objetos.size(); ++i) ordenados[fins[linhas[i]]++] = objetos[i];
    }
    size_t Quantidade() const { return fins.size(); }
    std::span<ETraduzivel* const> Da(size_t linha) const {
        const size_t inicio = linha == 0 ? 0 : fins[linha - 1];
        for (size_t i = inicio; i < fins[linha]; ++i) __builtin_prefetch(ordenados[i + kDistancia]);
        return std::span(ordenados).subspan(inicio, fins[linha] - inicio);
    }

  private:
    static constexpr size_t kDistancia = 12;  // objects of later lines, which stand anywhere

    std::vector<uint32_t> fins;  // one past the last object of each line
    std::vector<ETraduzivel*> ordenados;
};

// The text that the objects share, which they do not hold any more.
TQString SoltarTextos(std::span<ETraduzivel* const> objetos) {
    TQString texto;
    for (ETraduzivel* objeto : objetos) {
        if (objeto->GetTipo() == TipoBlocoTexto) {
            if (texto.empty()) texto = *objeto->GetTexto();
        } else {
            texto = objeto->SoltarTexto();
        }
    }
    return texto;
}

bool EstaFeitaPeloUsuario(const structExpressao& linha) {
    return linha.estado == Manual || linha.estado == Importado;
}

void Limpar(structExpressao& linha) {
    linha.traducao.clear();
    linha.estado = NaoTraduzido;
}

}  // namespace

void ITabelaExpressoes::AgruparExpressoes(const std::vector<ETraduzivel*>& objetos, Textos textos) {
    const ObjetosPorLinha grupos(objetos);
    expressoes = std::make_unique<ListaExpressoes>();
    expressoes->reserve(grupos.Quantidade());
    for (size_t i = 0; i < grupos.Quantidade(); ++i) {
        const auto grupo = grupos.Da(i);
        structExpressao& linha = *expressoes->emplace_back(std::make_unique<structExpressao>());
        linha.original = textos == Textos::Ficam ? *grupo.front()->GetTexto() : SoltarTextos(grupo);
        linha.objetos.assign(grupo.begin(), grupo.end());
    }
}

const TQString& ITabelaExpressoes::RotuloDe(uint32_t estado) const {
    switch (estado) {
        case Automatica:
            return rotuloAutomatica;
        case Manual:
            return rotuloManual;
        case Importado:
            return rotuloImportado;
        default:
            return rotuloNaoTraduzido;
    }
}

void ITabelaExpressoes::ReporEstados() {
    for (const auto& linha : *expressoes) {
        if (linha->estado == 0 || linha->estado == NaoTraduzido) Limpar(*linha);
        linha->rotuloEstado = RotuloDe(linha->estado);
    }
}

void ITabelaExpressoes::AtualizarExpressoes(const std::optional<TQString>& idiomaOrigem,
                                            const std::optional<TQString>& idiomaDestino) {
    if (expressoes) ReporEstados();
    if (!idiomaOrigem || !idiomaDestino || !expressoes || !traducoes) return;
    const auto colunaOrigem = PosicaoDe(traducoes->languages, *idiomaOrigem);
    const auto colunaDestino = PosicaoDe(traducoes->languages, *idiomaDestino);
    if (!colunaOrigem || !colunaDestino) return;
    Traduzir(*colunaOrigem, *colunaDestino);
}

void ITabelaExpressoes::Traduzir(size_t colunaOrigem, size_t colunaDestino) {
    const auto termos = TermosDasLinhas(*expressoes, traducoes->terms, colunaOrigem);
    // An empty text of the first equal term ends the search: later terms do not count.
    std::vector<std::u16string_view> textos;
    textos.reserve(termos.size());
    for (const structTermo* termo : termos) {
        textos.push_back(termo ? std::u16string_view(termo->translations.at(colunaDestino))
                               : std::u16string_view());
    }
    for (size_t i = 0; i < termos.size(); ++i) {
        structExpressao& linha = *(*expressoes)[i];
        if (EstaFeitaPeloUsuario(linha)) continue;
        linha.traducao.assign(textos[i]);
        linha.estado = textos[i].empty() ? NaoTraduzido : Automatica;
        if (linha.estado == Automatica) linha.termo = termos[i];
        linha.rotuloEstado = RotuloDe(linha.estado);
    }
}

}  // namespace traducaoTQ
