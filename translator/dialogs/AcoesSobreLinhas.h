// What loading, saving and replacing do with the lines and the dictionary in memory. No window: the
// columns come as numbers, and what the lists show is refreshed by whoever shows them.
#pragma once

#include <cstddef>
#include <deque>
#include <vector>

#include "translator/dialogs/ITabelaExpressoes.h"

namespace traducaoTQ {

// Where the source and the target text stand in the translations of a term.
struct structColunas {
    size_t origem = 0, destino = 0;
};

// The terms that were made for one line each. Must live as long as the lines.
using TermosFeitos = std::deque<IBDIdiomas::structTermo>;

// Fetches the dictionary of the database if none is in memory. True when it did; a dictionary
// without rows stays null.
bool GarantirDicionario(ITabelaExpressoes& tabela);

// Copies a column of the new terms (null: none) into those in memory; the first new one that is
// equal in the compared column rules. Nothing is added. The columns are taken as they are given:
// one that a term lacks raises std::out_of_range.
void AtualizarColuna(ITabelaExpressoes& tabela, const IBDIdiomas::structTraducoes* novos,
                     size_t comparada, size_t copiada);

// Makes what the drawing remembers the dictionary in memory, and groups the objects anew: all hand
// work is gone. The key of the project's language is one of GetAllLang.
void CarregarDicionarioProjeto(ITabelaExpressoes& tabela, const std::vector<ETraduzivel*>& objetos,
                               const TQString& idiomaProjeto);

// Each line with a translation becomes Automatica, its label as before, and its term is recorded in
// the drawing for each of its objects. Needs lines.
void RegistrarNoDesenho(ITabelaExpressoes& tabela, structColunas colunas,
                        const std::vector<IBDIdiomas::structIdioma>& idiomas, TermosFeitos& feitos);

// Each line that is Manual or Importado becomes Automatica, and its term goes to the database if
// that changes it. A term keeps its key -1: saved twice it is inserted twice. Needs lines.
void GravarNoBanco(ITabelaExpressoes& tabela, structColunas colunas,
                   const std::vector<IBDIdiomas::structIdioma>& idiomas, TermosFeitos& feitos);

bool TemTraducao(const ITabelaExpressoes& tabela);  // some line is not NaoTraduzido

// Writes every translation that is not empty into the objects of its line. What a SetTexto raises
// ends it there.
void SubstituirTextos(const ITabelaExpressoes& tabela);

}  // namespace traducaoTQ
