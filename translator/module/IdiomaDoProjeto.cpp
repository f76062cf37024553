// The language of the active document's project.
#include "translator/module/IdiomaDoProjeto.h"

#include "platform/drawing/OdError.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"

namespace {

std::shared_ptr<CKVLanguageSetting> Definicao() {
    auto projeto = GetElectricalServices()->GetProjectManager()->GetProject(ACTIVE_DOCUMENT());
    if (!projeto) throw OdError(u"there is no open drawing; open one and run the command again");
    return projeto->GetSettings()->GetLanguageSetting();
}

}  // namespace

TQString IdiomaDoProjeto() { return TQString(Definicao()->GetLanguage(), 1); }

void DefinirIdiomaDoProjeto(int idioma) { Definicao()->SetLanguage(idioma); }
