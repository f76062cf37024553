// The translation records in the drawing: what each object said in each language.
//
// Under the named objects dictionary stands "VRN_TQ_OBJS_TRADS"; in it one dictionary per object,
// under the key of its translatable; in that one EObjString per language, under the language's key.
// Anything of another class on the way raises OdError_NotThatKindOfClass.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/drawing/DbDictionary.h"
#include "platform/text/CString.h"
#include "translator/cad/TQString.h"
#include "translator/engine/ETraduzivel.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {

inline constexpr char16_t VRN_TQ_OBJS_TRADS[] = u"VRN_TQ_OBJS_TRADS";

// Language key and text, in the order of the object's dictionary.
using RegistrosObjeto = std::vector<std::pair<TQString, TQString>>;

// The entry of the parent, open for write; made when it is missing.
OdSmartPtr<OdDbDictionary> GetOrCreateDictionary(CString chave, OdSmartPtr<OdDbDictionary> pai);

// Never null. Makes the dictionary of all records in a drawing that has none.
std::unique_ptr<RegistrosObjeto> ReadObjectRecords(CString chave);

// Replaces the object's whole set of records; an entry "OBJ" stays.
void WriteObjectRecords(TQString chave, const RegistrosObjeto& registros);

// Records the term's translations for the languages in use. A term with fewer translations than
// these raises std::out_of_range.
void SaveTermRecords(TQString chave, IBDIdiomas::structTermo termo,
                     std::vector<IBDIdiomas::structIdioma> idiomas);

// One term per object, in the same order: the object's text in the current language, the recorded
// texts in the others. The terms' key is -1.
std::unique_ptr<IBDIdiomas::structTraducoes> GetProjectTerms(
    const std::vector<ETraduzivel*>& objetos, CString idiomaAtual);

}  // namespace traducaoTQ
