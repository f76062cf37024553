// The language of the active document's project.
#include "translator/engine/IdiomaDoProjeto.h"

#include "platform/drawing/OdError.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"

namespace traducaoTQ {

namespace {

std::shared_ptr<CKVProject> Projeto() {
    return GetElectricalServices()->GetProjectManager()->GetProject(ACTIVE_DOCUMENT());
}

std::shared_ptr<CKVLanguageSetting> Definicao() {
    const auto projeto = Projeto();
    if (!projeto) throw OdError(u"there is no open drawing; open one and run the command again");
    return projeto->GetSettings()->GetLanguageSetting();
}

}  // namespace

bool HaProjeto() { return Projeto() != nullptr; }

TQString IdiomaDoProjeto() { return TQString(Definicao()->GetLanguage(), 1); }

void DefinirIdiomaDoProjeto(int idioma) { Definicao()->SetLanguage(idioma); }

}  // namespace traducaoTQ
