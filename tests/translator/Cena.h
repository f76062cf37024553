// A host without windows for tests of the translator: one active document with one drawing, the
// services installed for as long as the scene lives.
#pragma once

#include <string>
#include <vector>

#include "platform/drawing/DbMText.h"
#include "platform/drawing/DbText.h"
#include "tests/support/ScriptedServices.h"
#include "translator/cad/TQString.h"

struct Cena {
    Cena() = default;  // without a document
    // With the drawing of a file's bytes.
    explicit Cena(const std::string& desenho) {
        servicos.AddDocument(OdDbDatabase::fromStore(dxf::Store::Parse(desenho)));
    }

    ScriptedDocument& Documento() { return *servicos.documents.front(); }
    OdDbDatabase& Desenho() { return *Documento().drawing; }
    std::string Bytes() { return Desenho().toBytes(); }  // what a save would write
    OdDbObjectPtr Objeto(const char16_t* handle, OdDb::OpenMode modo = OdDb::kForRead) {
        return Desenho().getOdDbObjectId(OdDbHandle(handle)).openObject(modo);
    }
    TQString TextoDe(const char16_t* handle) { return OdDbTextPtr(Objeto(handle))->textString(); }

    // What the user will choose.
    void EscolherPaginas(const std::vector<TQString>& paginas) {
        Documento().lisp.variables["pblTmpSelPags"] = {paginas.begin(), paginas.end()};
    }

    ScriptedServices servicos;
};
