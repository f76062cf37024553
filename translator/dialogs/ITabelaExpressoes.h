// The working table of a project translation: the lines, and their automatic translation. No
// window.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "translator/cad/TQString.h"
#include "translator/dialogs/IndiceTextos.h"
#include "translator/engine/ETraduzivel.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {

// A line has exactly one of these values; 0 is never set, and read as NaoTraduzido.
enum estadoExpressao : uint32_t { NaoTraduzido = 1, Automatica = 2, Manual = 4, Importado = 8 };

// One distinct text of the project with all the objects that bear it.
struct structExpressao {
    uint32_t estado = NaoTraduzido;
    TQString rotuloEstado;              // the state in words
    TQString original;                  // unique among the lines
    TQString traducao;                  // empty while not translated
    std::vector<ETraduzivel*> objetos;  // in scan order, never empty; the scan's list owns them
    // The term that the line was matched with or that was made for it. Not owned. A line that falls
    // back to NaoTraduzido keeps it.
    IBDIdiomas::structTermo* termo = nullptr;
};

// Owns the lines and the dictionary in memory. The objects of the lines belong to the scan's list,
// which must live as long as the lines.
class ITabelaExpressoes {
  public:
    using ListaExpressoes = std::vector<std::unique_ptr<structExpressao>>;

    // Folds the objects into one line per distinct text, in the order of first appearance. The
    // lines before, hand work included, are gone. Objects that need not know their texts any more
    // may leave them to the lines, which spares memory; those of blocks keep theirs.
    enum class Textos { Ficam, VaoParaAsLinhas };
    void AgruparExpressoes(const std::vector<ETraduzivel*>& objetos, Textos textos = Textos::Ficam);

    // Sets the labels and, when both languages (by name) are selected and a dictionary is loaded,
    // matches every line that is neither Manual nor Importado anew. Of several terms with the same
    // source text the first rules, also when it has no text in the target language.
    void AtualizarExpressoes(const std::optional<TQString>& idiomaOrigem,
                             const std::optional<TQString>& idiomaDestino);

    std::unique_ptr<ListaExpressoes> expressoes;  // null until the first grouping
    // Lines point into it: it must not be replaced while a line's termo is still used.
    std::unique_ptr<IBDIdiomas::structTraducoes> traducoes;  // null until something loads it
    TQString rotuloAutomatica;
    TQString rotuloManual;
    TQString rotuloImportado;
    TQString rotuloNaoTraduzido;
    // How grouping and matching do the two halves of their work.
    FazerAmbos fazerAmbos = UmDepoisDoOutro;

  private:
    const TQString& RotuloDe(uint32_t estado) const;
    void ReporEstados();
    void Traduzir(size_t colunaOrigem, size_t colunaDestino);
    void TraduzirLinhas(std::span<const std::unique_ptr<structExpressao>> linhas,
                        const IndiceTextos& indice, size_t colunaDestino);
};

}  // namespace traducaoTQ
