// Two programs that edit one dictionary at a time.
#include <gmock/gmock.h>

#include "tests/translator/dialogs/Editores.h"
#include "tests/translator/dialogs/OutroEditor.h"

namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

class DoisEditores : public TesteDeEditor {
  protected:
    // The act has both editors open; the first one must be closed by it.
    void Editar(const std::function<void(CWnd& editor, OutroEditor& outro)>& ato) {
        Usuario usuario;
        usuario.Entao([&](CWnd& editor) {
            OutroEditor outro(dicionario.url);
            ato(editor, outro);
        });
        usuario.Durante([this] { dicionario.Executar("KVTRANSLATEEDITDIC"); });
        EXPECT_THAT(dicionario.Falhas(), IsEmpty());
    }

    Dicionario dicionario{GetParam(),
                          {{"Motor", "Engine", "Antrieb"},
                           {"Bomba", "Pump", "Pumpe"},
                           {"Cabo", "Cable", "Kabel"},
                           {"Sinal", "Signal", "Signal"},
                           {"Painel", "Panel", "Tafel"}}};
};
NO_ARQUIVO_E_NO_SERVIDOR(DoisEditores);

}  // namespace

// What the other one removed stays away, even where it was edited here; what it changed or added
// stays where this one did not touch it; what both changed is as the later save has it.
TEST_P(DoisEditores, TheLaterSaveBringsNothingBack) {
    Editar([&](CWnd& editor, OutroEditor& outro) {
        for (const char* ordem :
             {"remove\tBomba", "remove\tPainel", "edit\tCabo\t1\tWire", "edit\tMotor\t2\tMotor",
              "add\tRel\tRelay\tRelais", "sort\t1", "apply"}) {
            EXPECT_EQ(outro.Fazer(ordem), "done");
        }
        dicionario.caixas.respostas = {kButtonYes, kButtonYes};
        Mudar(editor, "Bomba", 1, "edited here");
        Mudar(editor, "Motor", 1, "Motor");
        Retirar(editor, "Painel");
        Retirar(editor, "Sinal");
        Acrescentar(editor, {"Rel", "Relay", "Relais"});
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(LinhasDe(Grade(editor)),
                  (Linhas{{"Motor", "Motor", "Antrieb"},  // all columns of a row are written
                          {"Cabo", "Wire", "Kabel"},
                          {"Rel", "Relay", "Relais"},
                          {"Rel", "Relay", "Relais"}}));
        Clicar(editor, kBotaoOK);
        dicionario.Esperar();
        // The other one has read before that. A save of its own without a change brings nothing.
        EXPECT_EQ(outro.Fazer("apply"), "done");
        EXPECT_EQ(outro.Fazer("rows"), "Motor;Cabo;Rel;Rel;");
    });
}

TEST_P(DoisEditores, SaveAtOneTimeWithoutWaitingForEachOtherForever) {
    constexpr int kLinhas = 12;
    Linhas esperado = dicionario.Termos();
    Editar([&](CWnd& editor, OutroEditor& outro) {
        for (int i = 0; i < kLinhas; ++i) {
            const std::string aqui = "aqui" + std::to_string(i), la = "la" + std::to_string(i);
            EXPECT_EQ(outro.Fazer(QString::fromStdString("add\t" + la)), "done");
            Acrescentar(editor, {aqui.c_str()});
            esperado.push_back({aqui, "", ""});
            esperado.push_back({la, "", ""});
        }
        outro.Fazer("edit\tCabo\t1\tWire");
        Mudar(editor, "Motor", 1, "Motor");
        esperado[2][1] = "Wire";
        esperado[0][1] = "Motor";
        outro.Mandar("ok");
        Clicar(editor, kBotaoOK);
        dicionario.Esperar();
        outro.Terminar();
    });
    EXPECT_THAT(dicionario.Termos(), UnorderedElementsAreArray(esperado));
}

// The direction of the sort begins with the program.
TEST_P(DoisEditores, TheFirstClickSortsUpwardsAndTheNextDownwards) {
    Editar([&](CWnd& editor, OutroEditor& outro) {
        outro.Fazer("sort\t0");
        EXPECT_EQ(outro.Fazer("rows"), "Bomba;Cabo;Motor;Painel;Sinal;");
        outro.Fazer("sort\t0");
        EXPECT_EQ(outro.Fazer("rows"), "Sinal;Painel;Motor;Cabo;Bomba;");
        outro.Fazer("sort\t1");
        EXPECT_EQ(outro.Fazer("rows"), "Cabo;Motor;Painel;Bomba;Sinal;");
        Clicar(editor, kBotaoCancelar);
    });
}
