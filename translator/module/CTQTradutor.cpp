// The table of the module's commands.
#include "translator/module/CTQTradutor.h"

#include "platform/kernel/KVServices.h"
#include "translator/cad/TQString.h"
#include "translator/module/ComandoAssistente.h"
#include "translator/module/ComandoEdicaoDicionario.h"
#include "translator/module/ComandoEdicaoIdiomas.h"
#include "translator/module/ComandoTraduzirProjeto.h"

namespace {

struct Comando {
    TQString nome;
    void (*executar)();
    decltype(&makeUndoableFunctionCommand) criar;
};

const TQString kComandoAssistente = u"KVTRANSLATEASSIST";

// In the order of registration and of removal. The language editor alone cannot be undone: it
// changes the dictionary and never the drawing.
const Comando comandos[] = {
    {u"KVCFGTRADELANG", ComandoEdicaoIdiomas, makeNotUndoableFunctionCommand},
    {u"KVTRANSLATEEDITDIC", ComandoEdicaoDicionario, makeUndoableFunctionCommand},
    {u"KVTRANSLATEPROJ", ComandoTraduzirProjeto, makeUndoableFunctionCommand},
    {kComandoAssistente, ComandoAssistente, makeUndoableFunctionCommand},
};

}  // namespace

void CTQTradutor::registarComandos() {
    CKVCommandManager* manager = GetElectricalServices()->GetCommandManager();
    for (const Comando& comando : comandos) {
        auto run = [executar = comando.executar](CMxCommandContext*) { executar(); };
        manager->AddCommand(comando.criar(comando.nome, run, CKVCommand::onRequest));
    }
}

void CTQTradutor::removerComandos() {
    CKVServices* services = GetElectricalServices();
    CKVCommandManager* manager = services ? services->GetCommandManager() : nullptr;
    if (!manager) return;
    for (const Comando& comando : comandos) manager->RemoveCommand(comando.nome);
}
