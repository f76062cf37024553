// tq::CICad: what the translator takes from the CAD host beyond the drawing database.
#pragma once

#include <cstdint>

#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbDatabase.h"
#include "translator/cad/TQString.h"
#include "translator/cad/TQStringList.h"

class CMxDocument;

namespace tq {

class CEListaAtributos;

// Without data: made on the stack where it is needed. Operations that reach the drawing or LISP are
// guarded (Guarded.h). For the host's main thread only.
class CICad {
  public:
    // Has the active document's LISP evaluate an expression, whose value is dropped. Always true,
    // also when there is no document or no LISP to ask.
    bool ExecutaFuncaoCad(const TQString& expression);

    // The text of a LISP variable: the default if it is unset, empty if it holds no text.
    TQString GetVarStr(const TQString& name, const TQString& defaultText, CMxDocument* document);

    // The texts in a LISP variable's list; other values are passed over.
    TQStringList GetVarLstStr(const TQString& name, CMxDocument* document);

    int32_t Regen();  // 0, or 2 without an active document

    // The directory of the process image, ending in a backslash. Throws std::system_error.
    TQString GetExecutableDir();

    // The names of all layers in the order of the layer table, erased ones left out.
    TQStringList GetLayers(OdDbDatabase* database);

    // A text of the catalogue TQTRADUTOR, of TQINC, by number (defined in translator/messages).
    TQString GetMensagem(int32_t number);
    TQString GetMensagemINC(int32_t number);

    // The block of that name, also of another drawing than the current one. The id is left alone
    // when there is none.
    bool ExisteBloco(const TQString& nome, OdDbObjectId& id, OdDbDatabase* desenho);

    // The prompt of the definition of that tag, of several the one that ocorrencia (from 0) counts
    // to; the tag itself when there is none. Constant definitions do not count.
    TQString GetPrompt(OdDbBlockTableRecordPtr bloco, const TQString& tag, int32_t ocorrencia);
    TQString GetTextoDefault(OdDbBlockTableRecordPtr bloco, const TQString& tag);

    // The attributes whose tag begins with the prefix, in a list that the caller owns with its
    // records. 0, or 2 with a null list when the reference has none to ask.
    int32_t SearchAttributes(OdDbBlockReferencePtr referencia, CEListaAtributos** lugar,
                             bool comPrompts, bool valorDefault, const TQString& prefixo);
    // Writes the records' texts into the attributes of their tags; of several records of a tag the
    // last one stays. alterarFlag makes what changes visible. False for a null reference.
    bool AtualizarAtributos(OdDbBlockReferencePtr referencia, CEListaAtributos* lista,
                            bool alterarFlag, int32_t* contador);
    // Makes the attributes that the block defines. Always 0.
    int32_t CriarAtributos(OdDbObjectId blocoId, OdDbBlockReferencePtr referencia);

    // Makes the block of the current drawing from another drawing, or puts its content in the place
    // of the old one; references keep their ids and the texts of the attributes whose tag survives.
    // A failure leaves what was done so far: one undo takes it back.
    bool RedefinirBloco(OdDbDatabasePtr origem, const TQString& nome);
    bool RedefinirBloco(const TQString& caminho, const TQString& nome);
    // Only a drawing of one layer and without references to named blocks may become a block. The
    // reason why not is printed on the host's command line.
    bool canInsert(OdDbDatabasePtr origem, const TQString& nome, const TQString& caminho);
};

}  // namespace tq
