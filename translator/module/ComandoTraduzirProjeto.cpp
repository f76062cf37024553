// The command KVTRANSLATEPROJ: the dialog, the scan, and the dialog again.
#include "translator/module/ComandoTraduzirProjeto.h"

#include "translator/cad/ui/ParentWindow.h"
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/engine/ITradCad.h"
#include "translator/engine/IdiomaDoProjeto.h"
#include "translator/module/EscopoDeRecursos.h"
#include "translator/module/FluxoAssistente.h"

namespace {

// A failure on the way leaves the dialog and the scope of resources behind; this is meant. The
// function is what leak checks know such a dialog by.
[[gnu::noinline]] ITradutorProj* NovaJanela() { return new ITradutorProj(ParentWindow()); }

traducaoTQ::ListaTraduziveis Buscar(const ITradutorProj& janela) {
    const bool atributos = janela.buscarAtributos;
    const bool textos = janela.buscarTextos;
    return traducaoTQ::ITradCad().BuscarTraduziveis(atributos, textos, atributos, textos, false,
                                                    false, true);
}

// A scan that found nothing leaves the dialog's data as they were.
void LerProjeto(ITradutorProj& janela) {
    janela.projetoLido = false;
    auto achados = Buscar(janela);
    if (achados->empty()) return;
    janela.idiomas = traducaoTQ::IBDIdiomas().GetAllLang();
    janela.idiomaProjeto = traducaoTQ::IdiomaDoProjeto();
    janela.projetoLido = true;
    janela.AgruparExpressoes(*achados);
    janela.objetos = std::move(achados);
}

}  // namespace

void ComandoTraduzirProjeto() {
    AbrirRecursos();
    ITradutorProj* const janela = NovaJanela();
    janela->projetoLido = false;
    auto resultado = janela->DoModal();
    while (resultado == ITradutorProj::LerDeNovo) {
        LerProjeto(*janela);
        resultado = janela->DoModal();
    }
    if (resultado == ITradutorProj::IniciarAssistente) FluxoAssistente(janela->GetIdiomaDestino());
    delete janela;
    FecharRecursos();
}
