// Grouping of objects into lines, and matching of lines with the dictionary in memory. Both are
// indexed by the text, so that they grow with the objects and terms and not with their product.
#include "translator/dialogs/ITabelaExpressoes.h"

#include <algorithm>
#include <numeric>
#include <span>

#include "translator/dialogs/AnteciparMemoria.h"
#include "translator/dialogs/IndiceTextos.h"

namespace traducaoTQ {

namespace {

using structTermo = IBDIdiomas::structTermo;

// Lines at a time; not too many, for matching is where the most memory is in use.
constexpr size_t kParte = 4096;

std::optional<size_t> PosicaoDe(const std::vector<TQString>& nomes, const TQString& nome) {
    const auto achado = std::find(nomes.begin(), nomes.end(), nome);
    if (achado == nomes.end()) return std::nullopt;
    return static_cast<size_t>(achado - nomes.begin());
}

template <class TextoDe>
IndiceTextos::Vistas VistasDe(size_t quantidade, const FazerAmbos& fazerAmbos,
                              const TextoDe& textoDe) {
    IndiceTextos::Vistas vistas(quantidade);
    EmPartes(quantidade, kParte, fazerAmbos, [&](size_t inicio, size_t fim) {
        for (size_t i = inicio; i < fim; ++i) vistas[i] = textoDe(i);
    });
    return vistas;
}

IndiceTextos IndiceDosTermos(const std::vector<structTermo>& termos, size_t coluna,
                             const FazerAmbos& fazerAmbos) {
    const auto textoDe = [&](size_t i) -> const TQString& {
        return termos[i].translations.at(coluna);
    };
    return IndiceTextos(VistasDe(termos.size(), fazerAmbos, textoDe), fazerAmbos);
}

// The line of each object, and how many lines there are. What it takes to find out is gone before
// the lines are made.
size_t NumerarTextos(const std::vector<ETraduzivel*>& objetos, const FazerAmbos& fazerAmbos,
                     std::vector<uint32_t>& linhas) {
    const auto textoDe = [&](size_t i) -> const TQString& { return *objetos[i]->GetTexto(); };
    const IndiceTextos indice(VistasDe(objetos.size(), fazerAmbos, textoDe), fazerAmbos);
    const std::vector<uint32_t>& primeiros = indice.Primeiros();
    linhas.resize(objetos.size());
    uint32_t quantidade = 0;
    for (uint32_t i = 0; i < linhas.size(); ++i) {
        linhas[i] = primeiros[i] == i ? quantidade++ : linhas[primeiros[i]];
    }
    return quantidade;
}

// The objects of each line side by side, in scan order.
class ObjetosPorLinha {
  public:
    ObjetosPorLinha(const std::vector<ETraduzivel*>& objetos, const FazerAmbos& fazerAmbos)
        : ordenados(objetos.size()) {
        std::vector<uint32_t> linhas;
        fins.resize(NumerarTextos(objetos, fazerAmbos, linhas));
        for (uint32_t linha : linhas) ++fins[linha];
        std::exclusive_scan(fins.begin(), fins.end(), fins.begin(), uint32_t{0});
        for (size_t i = 0; i < objetos.size(); ++i) ordenados[fins[linhas[i]]++] = objetos[i];
    }
    size_t Quantidade() const { return fins.size(); }
    std::span<ETraduzivel* const> Da(size_t linha) const {
        const size_t inicio = linha == 0 ? 0 : fins[linha - 1];
        for (size_t i = inicio; i < fins[linha]; ++i) {
            if (i + kDistancia < ordenados.size()) AnteciparTraduzivel(ordenados[i + kDistancia]);
        }
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
    const ObjetosPorLinha grupos(objetos, fazerAmbos);
    expressoes = std::make_unique<ListaExpressoes>(grupos.Quantidade());
    EmPartes(grupos.Quantidade(), kParte, fazerAmbos, [&](size_t inicio, size_t fim) {
        for (size_t i = inicio; i < fim; ++i) {
            const auto grupo = grupos.Da(i);
            auto linha = std::make_unique<structExpressao>();
            linha->original =
                textos == Textos::Ficam ? *grupo.front()->GetTexto() : SoltarTextos(grupo);
            linha->objetos.assign(grupo.begin(), grupo.end());
            (*expressoes)[i] = std::move(linha);
        }
    });
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
    EmPartes(expressoes->size(), kParte, fazerAmbos, [&](size_t inicio, size_t fim) {
        for (size_t i = inicio; i < fim; ++i) {
            structExpressao& linha = *(*expressoes)[i];
            if (linha.estado == 0 || linha.estado == NaoTraduzido) Limpar(linha);
            linha.rotuloEstado = RotuloDe(linha.estado);
        }
    });
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
    std::vector<structTermo>& termos = traducoes->terms;
    const IndiceTextos indice = IndiceDosTermos(termos, colunaOrigem, fazerAmbos);
    EmPartes(expressoes->size(), kParte, fazerAmbos, [&](size_t inicio, size_t fim) {
        TraduzirLinhas(std::span(*expressoes).subspan(inicio, fim - inicio), indice, colunaDestino);
    });
}

// An empty text of the first equal term ends the search: later terms do not count.
void ITabelaExpressoes::TraduzirLinhas(std::span<const std::unique_ptr<structExpressao>> linhas,
                                       const IndiceTextos& indice, size_t colunaDestino) {
    std::vector<structTermo>& termos = traducoes->terms;
    IndiceTextos::Vistas originais, textos;
    for (const auto& linha : linhas) originais.emplace_back(linha->original);
    const std::vector<uint32_t> lugares = indice.Procurar(originais);
    for (const uint32_t lugar : lugares) {
        if (lugar != IndiceTextos::kNenhum) AnteciparMemoria(termos[lugar].translations.data());
    }
    for (const uint32_t lugar : lugares) {
        textos.push_back(lugar == IndiceTextos::kNenhum
                             ? std::u16string_view()
                             : termos[lugar].translations.at(colunaDestino));
    }
    for (size_t i = 0; i < linhas.size(); ++i) {
        structExpressao& linha = *linhas[i];
        if (EstaFeitaPeloUsuario(linha)) continue;
        linha.traducao.assign(textos[i]);
        linha.estado = textos[i].empty() ? NaoTraduzido : Automatica;
        if (linha.estado == Automatica) linha.termo = &termos[lugares[i]];
        linha.rotuloEstado = RotuloDe(linha.estado);
    }
}

}  // namespace traducaoTQ
