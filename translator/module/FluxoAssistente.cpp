// The wizard's way of a project from one language to another.
#include "translator/module/FluxoAssistente.h"

#include "translator/cad/CICad.h"
#include "translator/cad/Guarded.h"
#include "translator/cad/ui/ParentWindow.h"
#include "translator/dialogs/ui/IWTrocaIdioma.h"
#include "translator/dialogs/ui/Mensagens.h"
#include "translator/engine/GruposDePaginas.h"
#include "translator/engine/IdiomaDoProjeto.h"
#include "translator/engine/TrocaIdioma.h"
#include "translator/module/EscopoDeRecursos.h"

namespace {

constexpr int32_t kIdiomaTrocado = 87;

// The project's language is changed before anything else: a failure of the rest leaves it so.
void TrocarIdioma(const IWTrocaIdioma& assistente, const TQString& idiomaAnterior) {
    const TQString destino = assistente.GetIdiomaDestino();
    traducaoTQ::DefinirIdiomaDoProjeto(destino.ToInt());
    traducaoTQ::ChangeProjectLanguage(idiomaAnterior, destino, assistente.GetTraduzirAtributos());
    if (assistente.GetRedefinirGrupos()) traducaoTQ::RedefinePageGroups(destino);
    Avisar(Mensagem(kIdiomaTrocado));
}

// A failure leaves the wizard and the scope of resources behind; this is meant. The function is
// what leak checks know such a wizard by.
[[gnu::noinline]] IWTrocaIdioma* NovoAssistente() {
    return new IWTrocaIdioma(u"wizard", ParentWindow(), 0);
}

void Executar(const TQString& idiomaDestino) {
    const TQString idiomaAnterior = traducaoTQ::IdiomaDoProjeto();
    AbrirRecursos();
    IWTrocaIdioma* const assistente = NovoAssistente();
    assistente->Iniciar(traducaoTQ::IBDIdiomas().GetAllLang(), idiomaAnterior, idiomaDestino);
    if (assistente->DoModal() == ID_WIZFINISH) TrocarIdioma(*assistente, idiomaAnterior);
    delete assistente;
    // After a cancelled wizard too: what the host derives from the pages is brought up to date.
    tq::CICad().ExecutaFuncaoCad(u"(atualizarpaginas) ");
    tq::CICad().ExecutaFuncaoCad(u"(atualizaDescrPags) ");
    FecharRecursos();
}

}  // namespace

void FluxoAssistente(TQString idiomaDestino) {
    Guarded(u"JanelaTraducao", [&] { Executar(idiomaDestino); });
}
