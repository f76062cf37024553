// "Exportar" and "Importar" of the project translation dialog.
#include "platform/kernel/MxLispEngine.h"
#include "translator/cad/ui/TQFileDialog.h"
#include "translator/dialogs/IntercambioCsv.h"
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/dialogs/ui/Mensagens.h"

namespace {

constexpr char16_t kFiltroCsv[] = u"(*.csv)|*.csv||";
constexpr int kColunaOriginal = 1, kColunaDestino = 2;

}  // namespace

// The rows that the list shows, in its order: filters and sorting decide what is exported. The
// notice comes also when the file could not be written; this is meant.
void ITradutorProj::Exportar() {
    TQString caminho;
    if (TQFileDialog(caminho, false, rotuloCsv + kFiltroCsv, u"", tituloExportar) != kLispNormal) {
        return;
    }
    std::ofstream arquivo = traducaoTQ::AbrirExportacao(caminho);
    traducaoTQ::ExportadorCsv exportador(arquivo);
    for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
        exportador.Escrever(lista.GetItemText(linha, kColunaOriginal),
                            lista.GetItemText(linha, kColunaDestino));
    }
    arquivo.close();
    Avisar(avisoExportado);
}

void ITradutorProj::Importar() {
    TQString caminho;
    if (TQFileDialog(caminho, true, rotuloCsv + kFiltroCsv, u"", tituloImportar) == kLispNormal) {
        std::ifstream arquivo = traducaoTQ::AbrirImportacao(caminho);
        if (traducaoTQ::ImportarCsv(arquivo, expressoes.get()).tentada) alterado = true;
        arquivo.close();
        Avisar(avisoImportado);
    }
    AtualizarDasListas();
    PreencherDestino();
}
