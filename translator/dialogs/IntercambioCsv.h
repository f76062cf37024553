// The exchange file: lines of a translation leave the program for a translator and come back.
//
// A row is the original, ";", the translation and CR LF, nothing else: no heading, no quotes, no
// byte order mark. A ";" or a line end inside a text is written as it is, so that such a row does
// not come back whole. The file says nothing of languages.
#pragma once

#include <cstddef>
#include <fstream>
#include <istream>
#include <optional>
#include <ostream>

#include "platform/win32/CodePages.h"
#include "translator/dialogs/ITabelaExpressoes.h"

namespace traducaoTQ {

// The longest field of a row, in bytes of the file.
inline constexpr size_t kMaxBytesCampo = 999;

// The streams of a file that the user chose, by a path of the module; the one for writing empties
// the file. No exception: a stream that could not be opened is not in a good state.
std::ofstream AbrirExportacao(const TQString& caminho);
std::ifstream AbrirImportacao(const TQString& caminho);

// Writes rows. What becomes of the stream is the caller's matter: writes to one that is not in a
// good state go nowhere.
class ExportadorCsv {
  public:
    // The stream must be a binary one, and outlive this object.
    explicit ExportadorCsv(std::ostream& saida, UINT pagina = CP_ACP);

    // Each text up to its first zero character. A line feed, also one inside a text, becomes CR LF.
    void Escrever(const TQString& original, const TQString& traducao);

    size_t Linhas() const { return linhas; }
    // How many characters the page could not hold: they stand in the file as "?", in UTF-8 as
    // U+FFFD.
    size_t CaracteresPerdidos() const { return perdidos; }
    // How many rows an import will not take back whole: the original has a ";" or a character that
    // the page could not hold, the translation a line end, or one of them is too long.
    size_t LinhasSemVolta() const { return semVolta; }

  private:
    size_t EscreverCampo(const TQString& texto);  // its length in bytes

    std::ostream& saida;
    UINT pagina;
    size_t linhas = 0, perdidos = 0, semVolta = 0;
};

// What an import did, in rows of the file. The dialog tells none of it but `tentada`.
struct structImportacao {
    bool tentada = false;      // the stream was in a good state: also true of an empty file
    size_t tomadas = 0;        // filled a line
    size_t desconhecidas = 0;  // no line has the text
    size_t vazias = 0;         // one of the fields is empty or one blank
    size_t repetidas = 0;  // the line has a translation already, by an earlier row or from before
    // The row, counted from 1, with a field over kMaxBytesCampo. It ends the import and is not
    // taken, since its text would be cut; the rows before it stay.
    std::optional<size_t> longa;
};

// Reads rows up to the end of the stream. Each fills the line in NaoTraduzido whose original is
// exactly its first field: traducao becomes the second field, estado Importado; rotuloEstado
// follows at the next AtualizarExpressoes. Null lines are as none. Reads any bytes without harm.
structImportacao ImportarCsv(std::istream& entrada, ITabelaExpressoes::ListaExpressoes* expressoes,
                             UINT pagina = CP_ACP);

}  // namespace traducaoTQ
