// The roads to the host's LISP, its display and its directory, and the layer names of a drawing.
#include "translator/cad/CICad.h"

#include <system_error>

#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbLayerTable.h"
#include "platform/kernel/MxDocument.h"
#include "platform/kernel/MxLispEngine.h"
#include "platform/kernel/MxSystemServices.h"
#include "platform/win32/LastError.h"
#include "platform/win32/Modules.h"
#include "translator/cad/Guarded.h"

namespace tq {

namespace {

CMxLispEngine* LispEngineOf(CMxDocument* document) {
    return document ? document->GetLispEngine() : nullptr;
}

// The value of a variable, null when it has none. The caller gives it back.
CMxValueNode* VariableChain(CMxLispEngine& lisp, const TQString& name) {
    CMxValueNode* chain = nullptr;
    return lisp.GetLispVariable(name.c_str(), &chain) == kLispNormal ? chain : nullptr;
}

}  // namespace

bool CICad::ExecutaFuncaoCad(const TQString& expression) {
    return Guarded(u"tq::CICad::ExecutaFuncaoCad", [&] {
        CMxLispEngine* lisp = LispEngineOf(ACTIVE_DOCUMENT());
        if (!lisp) return true;
        TQString wrapped = u"(progn " + expression + u" (princ))";
        CMxValueNode* unread = nullptr;
        lisp->EvaluateLisp(wrapped.c_str(), &unread);
        return true;
    });
}

TQString CICad::GetVarStr(const TQString& name, const TQString& defaultText,
                          CMxDocument* document) {
    return Guarded(u"tq::CICad::GetVarStr", [&] {
        CMxLispEngine* lisp = LispEngineOf(document);
        CMxValueNode* chain = lisp ? VariableChain(*lisp, name) : nullptr;
        if (!chain) return defaultText;
        TQString text;  // stays empty for any other type: the default is for unset variables
        if (chain->type == kLispString) text = chain->value.string;
        lisp->ReleaseValueChain(chain);
        return text;
    });
}

TQStringList CICad::GetVarLstStr(const TQString& name, CMxDocument* document) {
    return Guarded(u"tq::CICad::GetVarLstStr", [&] {
        TQStringList texts;
        CMxLispEngine* lisp = LispEngineOf(document);
        if (!lisp) return texts;
        // The chain is not given back, which is meant: it lives as long as the engine.
        for (CMxValueNode* node = VariableChain(*lisp, name); node; node = node->next) {
            if (node->type == kLispString) texts.push_back(node->value.string);
        }
        return texts;
    });
}

int32_t CICad::Regen() {
    CMxDocument* document = ACTIVE_DOCUMENT();
    if (!document) return 2;
    document->GetDisplayObject()->Redraw(document->GetDisplayTarget());
    return 0;
}

TQString CICad::GetExecutableDir() {
    char16_t name[MAX_PATH];
    DWORD length = GetModuleFileNameW(nullptr, name, MAX_PATH);
    if (length == 0 || length >= MAX_PATH) {
        throw std::system_error(static_cast<int>(GetLastError()), Win32Errors(),
                                "Failed to get executable path");
    }
    std::u16string_view directory(name, length);
    directory = directory.substr(0, directory.find_last_of(u'\\'));
    while (directory.ends_with(u'\\')) directory.remove_suffix(1);
    return TQString(std::u16string(directory)) + u"\\";
}

TQStringList CICad::GetLayers(OdDbDatabase* database) {
    return Guarded(u"tq::CICad::GetLayers", [&] {
        TQStringList names;
        OdDbLayerTablePtr table = database->getLayerTableId().openObject();
        for (OdDbSymbolTableIteratorPtr layer = table->newIterator(); !layer->done();
             layer->step()) {
            names.push_back(layer->getRecord()->getName());
        }
        return names;
    });
}

}  // namespace tq
