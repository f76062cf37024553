// tq::CICad: what the translator takes from the CAD host beyond the drawing database.
#pragma once

#include <cstdint>

#include "translator/cad/TQString.h"
#include "translator/cad/TQStringList.h"

class CMxDocument;
class OdDbDatabase;

namespace tq {

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
};

}  // namespace tq
