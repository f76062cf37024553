// KVTRANSLATEEDITDIC as a user runs it: the real window on a real dictionary.
#include <gmock/gmock.h>

#include <QTest>
#include <QWidget>
#include <map>
#include <random>

#include "host/Dictionary.h"
#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/dialogs/Editores.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kComando = "KVTRANSLATEEDITDIC";

const std::initializer_list<Linha> kTermos = {{"Motor", "Engine", "Antrieb"},
                                              {"Bomba", "Pump", "Pumpe"},
                                              {"Cabo", "Cable", "Kabel"},
                                              {"Sinal", "Signal", "Signal"}};

// One opening of the editor; the act ends it.
void Editar(Dicionario& dicionario, const Usuario::Ato& ato) {
    Usuario usuario;
    usuario.Entao(ato);
    usuario.Durante([&] { dicionario.Executar(kComando); });
}

class EdicaoDicionario : public TesteDeEditor {
  protected:
    void Editar(const Usuario::Ato& ato) { ::Editar(dicionario, ato); }

    Dicionario dicionario{GetParam(), kTermos};
};
NO_ARQUIVO_E_NO_SERVIDOR(EdicaoDicionario);

void Mudancas(Dicionario& dicionario, CWnd& editor) {
    dicionario.caixas.respostas = {kButtonYes, kButtonYes};
    Acrescentar(editor, {"Zinco", "Zinc"});
    Mudar(editor, "Cabo", 2, "Kabel ");  // a blank more is a change
    Acrescentar(editor, {"Nunca salvo"});
    Retirar(editor, "Nunca salvo");
    Mudar(editor, "Sinal", 1, "other");
    Mudar(editor, "Sinal", 1, "Signal");
    Retirar(editor, "Bomba");
    Acrescentar(editor, {"Alarme", "Alarm", "Alarm"});
    Acrescentar(editor, {"Alarme", "Alarm", "Alarm"});
    Acrescentar(editor, {"   "});
}

}  // namespace

// Rows are matched by their keys: however they are sorted, the same is written, inserts before
// deletes before updates, and only the inserts come in the order of the rows.
class EdicaoOrdenada : public testing::TestWithParam<std::tuple<Onde, int>> {};
INSTANTIATE_TEST_SUITE_P(File, EdicaoOrdenada,
                         testing::Combine(testing::Values(Onde::Arquivo), testing::Range(0, 3)));
INSTANTIATE_TEST_SUITE_P(Server, EdicaoOrdenada,
                         testing::Combine(testing::Values(Onde::Servidor), testing::Range(0, 3)));

TEST_P(EdicaoOrdenada, SavesInFivePassesWhateverTheOrderOfTheRows) {
    const auto [onde, cliques] = GetParam();
    Dicionario dicionario(onde, kTermos);
    dicionario.AnotarEscritas();
    std::vector<std::string> passos;
    Editar(dicionario, [&, cliques = cliques](CWnd& editor) {
        EXPECT_EQ(LinhasDe(Grade(editor)), Linhas(kTermos));
        Mudancas(dicionario, editor);
        for (int i = 0; i < cliques; ++i) ClicarTitulo(Grade(editor), 0);
        for (const std::string& texto : Coluna(Grade(editor), 0)) {
            for (const char* novo : {"Zinco", "Alarme", "   "}) {
                if (texto == novo) passos.push_back("insert " + texto);
            }
        }
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(passos.size(), 4u);
    passos.insert(passos.end(), {"delete Bomba", "update Cabo"});
    EXPECT_EQ(dicionario.Escritas(), passos);
    EXPECT_THAT(dicionario.Termos(),
                testing::UnorderedElementsAreArray(Linhas{{"Motor", "Engine", "Antrieb"},
                                                          {"Cabo", "Cable", "Kabel "},
                                                          {"Sinal", "Signal", "Signal"},
                                                          {"Zinco", "Zinc", ""},
                                                          {"Alarme", "Alarm", "Alarm"},
                                                          {"Alarme", "Alarm", "Alarm"},
                                                          {"   ", "", ""}}));
    EXPECT_THAT(dicionario.Falhas(), IsEmpty());
}

// By key: what a term says in all languages.
std::map<std::string, std::string> PorChave(const Dicionario& dicionario) {
    std::map<std::string, std::string> termos;
    for (const std::string& linha :
         dicionario.Ler("SELECT TRANS_KEY, LANGUAGE1, LANGUAGE2, LANGUAGE3 FROM BDTRANSLATOR")) {
        const size_t blank = linha.find(' ');
        termos[linha.substr(0, blank)] = linha.substr(blank + 1);
    }
    return termos;
}

// Anything in any order: after a save the database holds what the grid has shown, and a term that
// says what it said before is still the same one.
TEST_P(EdicaoDicionario, HoldsWhatTheGridShowsWhateverIsDone) {
    std::mt19937 acaso(7);
    const auto numero = [&](int ate) { return static_cast<int>(acaso() % ate); };
    const auto umAto = [&](CWnd& editor) {
        CListCtrl& grade = Grade(editor);
        const std::string texto = "t" + std::to_string(acaso());
        const int ato = grade.GetItemCount() < 3 ? 0 : numero(6);
        if (ato == 0) {
            Acrescentar(editor, {texto.c_str(), (texto + "b").c_str()});
        } else if (ato == 1) {
            dicionario.caixas.respostas = {kButtonYes};
            AbrirEditor(grade, numero(grade.GetItemCount()), numero(3));
            Clicar(editor, kBotaoRemover);
        } else if (ato == 2) {
            ClicarTitulo(grade, numero(3));
        } else {
            Digitar(grade, numero(grade.GetItemCount()), numero(3), texto.c_str());
        }
    };
    Editar([&](CWnd& editor) {
        for (int salvo = 0; salvo < 6; ++salvo) {
            for (int i = 0; i < 8; ++i) umAto(editor);
            const auto antes = PorChave(dicionario);
            const Linhas mostradas = LinhasDe(Grade(editor));
            Clicar(editor, kBotaoAplicar);
            dicionario.Esperar();
            EXPECT_THAT(dicionario.Termos(), testing::UnorderedElementsAreArray(mostradas));
            EXPECT_EQ(LinhasDe(Grade(editor)), dicionario.Termos());
            const auto depois = PorChave(dicionario);
            for (const auto& [chave, textos] : antes) {
                for (const auto& [outra, mesmos] : depois) {
                    EXPECT_TRUE(textos != mesmos || chave == outra) << textos;
                }
            }
        }
        Clicar(editor, kBotaoOK);
    });
    EXPECT_THAT(dicionario.Falhas(), IsEmpty());
}

// What is applied is read again: new terms have their keys, and a second save neither doubles nor
// loses anything.
TEST_P(EdicaoDicionario, ReadsAgainAfterApplying) {
    dicionario.AnotarEscritas();
    Editar([&](CWnd& editor) {
        ClicarTitulo(Grade(editor), 1);
        Acrescentar(editor, {"Rel", "Relay"});
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(Coluna(Grade(editor), 0),
                  (std::vector<std::string>{"Motor", "Bomba", "Cabo", "Sinal", "Rel"}))
            << "the order of the keys again";
        Clicar(editor, kBotaoAplicar);
        Mudar(editor, "Rel", 2, "Relais");
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(LinhasDe(Grade(editor)).back(), (Linha{"Rel", "Relay", "Relais"}));
        // Removed and typed anew it is another term.
        dicionario.caixas.respostas = {kButtonYes};
        Retirar(editor, "Rel");
        Acrescentar(editor, {"Rel", "Relay", "Relais"});
        Clicar(editor, kBotaoOK);
    });
    EXPECT_THAT(dicionario.Escritas(),
                ElementsAre("insert Rel", "update Rel", "insert Rel", "delete Rel"));
    EXPECT_EQ(dicionario.Termos().back(), (Linha{"Rel", "Relay", "Relais"}));
    EXPECT_EQ(dicionario.Sql("SELECT max(TRANS_KEY) FROM BDTRANSLATOR"), "6");
}

TEST_P(EdicaoDicionario, WritesNothingWhenItIsLeftOrNothingHasChanged) {
    dicionario.AnotarEscritas();
    const Usuario::Ato saidas[] = {
        [](CWnd& editor) { Clicar(editor, kBotaoCancelar); },
        [](CWnd& editor) { QTest::keyClick(WidgetOf(&Grade(editor)), Qt::Key_Escape); },
        [](CWnd& editor) { WidgetOf(&editor)->close(); },
    };
    for (const auto& sair : saidas) {
        Editar([&](CWnd& editor) {
            Mudancas(dicionario, editor);
            QTest::keyClick(WidgetOf(&Grade(editor)), Qt::Key_Return);  // ends no dialog
            sair(editor);
        });
    }
    Editar([](CWnd& editor) {
        AbrirEditor(Grade(editor), 1, 1);  // and leaves it as it is
        Clicar(editor, kBotaoAplicar);
        Clicar(editor, kBotaoOK);
    });
    EXPECT_THAT(dicionario.Escritas(), IsEmpty());
}

TEST_P(EdicaoDicionario, AsksBeforeItLooksForARowToRemove) {
    dicionario.AnotarEscritas();
    Editar([&](CWnd& editor) {
        dicionario.caixas.respostas = {kButtonYes, kButtonNo, kButtonYes};
        Clicar(editor, kBotaoRemover);
        EXPECT_EQ(Grade(editor).GetItemCount(), 4) << "no row was chosen";
        Retirar(editor, "Cabo");
        EXPECT_EQ(Grade(editor).GetItemCount(), 4) << "the answer was no";
        Retirar(editor, "Cabo");
        EXPECT_EQ(LinhaCom(Grade(editor), 0, "Cabo"), -1);
        dicionario.Esperar();
        EXPECT_THAT(dicionario.Escritas(), IsEmpty()) << "only a save writes";
        Clicar(editor, kBotaoOK);
    });
    EXPECT_THAT(dicionario.Escritas(), ElementsAre("delete Cabo"));
    EXPECT_THAT(
        dicionario.caixas.formas,
        testing::AllOf(testing::SizeIs(3), testing::Each("Question Kelvara Circuit 81920 0")));
}

TEST_P(EdicaoDicionario, ALanguageOutOfUseHasNoColumnAndKeepsItsTexts) {
    dicionario.Sql("UPDATE BDLANGUAGE SET LANG_USE = '0' WHERE LANG_KEY = '2'");
    Editar([](CWnd& editor) {
        EXPECT_EQ(LinhasDe(Grade(editor)).front(), (Linha{"Motor", "Antrieb"}));
        Mudar(editor, "Motor", 1, "Motor");
        Acrescentar(editor, {"Rel", "Relais"});
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Termos().front(), (Linha{"Motor", "Engine", "Motor"}));
    EXPECT_EQ(dicionario.Termos().back(), (Linha{"Rel", "", "Relais"}));
}

// Reading and updating go by the key of a language, inserting by its position; this is meant.
TEST_P(EdicaoDicionario, LanguagesNumberedOneTwoFour) {
    host::Dictionary(dicionario.url).AddLanguage("Français");
    dicionario.Sql("DELETE FROM BDLANGUAGE WHERE LANG_KEY = '3'");
    Editar([](CWnd& editor) {
        EXPECT_EQ(LinhasDe(Grade(editor)).front(), (Linha{"Motor", "Engine", ""}));
        Mudar(editor, "Motor", 2, "Moteur");
        Acrescentar(editor, {"Rel", "Relay", "Relais"});
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(LinhasDe(Grade(editor)).front(), (Linha{"Motor", "Engine", "Moteur"}));
        EXPECT_EQ(LinhasDe(Grade(editor)).back(), (Linha{"Rel", "Relay", ""}));
        Clicar(editor, kBotaoOK);
    });
    const QString linha = "SELECT LANGUAGE3 || '|' || LANGUAGE4 FROM BDTRANSLATOR WHERE LANGUAGE1 ";
    EXPECT_EQ(dicionario.Sql(linha + "= 'Motor'"), "Antrieb|Moteur");
    EXPECT_EQ(dicionario.Sql(linha + "= 'Rel'"), "Relais|");
}

TEST_P(EdicaoDicionario, TheFirstTermIsTypedIntoAnEmptyDictionary) {
    dicionario.Sql("DELETE FROM BDTRANSLATOR");
    Editar([&](CWnd& editor) {
        EXPECT_EQ(Grade(editor).GetItemCount(), 0);
        EXPECT_EQ(Grade(editor).GetHeaderCtrl()->GetItemCount(), 3);
        Acrescentar(editor, {"Rel", "Relay", "Relais"});
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(LinhasDe(Grade(editor)), (Linhas{{"Rel", "Relay", "Relais"}}));
        // And the last one removed.
        dicionario.caixas.respostas = {kButtonYes};
        Retirar(editor, "Rel");
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(Grade(editor).GetItemCount(), 0);
        Acrescentar(editor, {"Motor"});
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Termos(), (Linhas{{"Motor", "", ""}}));
    EXPECT_THAT(dicionario.Falhas(), IsEmpty());
}

// As while another program works on the schema: what was typed is in the log, and the editor goes
// on with the terms when they can be read again.
TEST_P(EdicaoDicionario, OpensWithItsColumnsWhenTheTermsCannotBeRead) {
    dicionario.Sql("ALTER TABLE BDTRANSLATOR RENAME COLUMN LANGUAGE3 TO AWAY");
    Editar([&](CWnd& editor) {
        EXPECT_EQ(Grade(editor).GetItemCount(), 0);
        EXPECT_EQ(Grade(editor).GetHeaderCtrl()->GetItemCount(), 3);
        Acrescentar(editor, {"Rel", "Relay"});
        Clicar(editor, kBotaoAplicar);
        dicionario.Esperar();
        EXPECT_THAT(dicionario.Falhas(),
                    testing::Contains(HasSubstr("; values: \"Rel\", \"Relay\", \"\"")));
        dicionario.Sql("ALTER TABLE BDTRANSLATOR RENAME COLUMN AWAY TO LANGUAGE3");
        Clicar(editor, kBotaoAplicar);
        EXPECT_EQ(LinhasDe(Grade(editor)), Linhas(kTermos));
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Termos(), Linhas(kTermos));
}

TEST_P(EdicaoDicionario, WithoutLanguagesThereIsNothingToTypeOrToWrite) {
    dicionario.AnotarEscritas();
    dicionario.Sql("UPDATE BDLANGUAGE SET LANG_USE = '0'");
    const size_t antes = dicionario.Escritas().size();
    Editar([](CWnd& editor) {
        EXPECT_EQ(Grade(editor).GetHeaderCtrl()->GetItemCount(), 0);
        Clicar(editor, kBotaoAdicionar);
        EXPECT_EQ(Grade(editor).GetItemCount(), 0);
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Escritas().size(), antes);
}

// The column's length for terms that were read, 50 for rows that the user adds.
TEST_P(EdicaoDicionario, TextsEndAtTheirLimit) {
    const std::string muitos(300, 'x');
    Editar([&](CWnd& editor) {
        Mudar(editor, "Motor", 0, muitos.c_str());
        Acrescentar(editor, {muitos.c_str(), "Relay"});
        Clicar(editor, kBotaoOK);
    });
    EXPECT_EQ(dicionario.Termos().front()[0], muitos.substr(0, 250));
    EXPECT_EQ(dicionario.Termos().back()[0], muitos.substr(0, 50));
    EXPECT_THAT(dicionario.Falhas(), IsEmpty());
}

TEST_P(EdicaoDicionario, ItsControlsFollowItsSize) {
    Editar([](CWnd& editor) {
        for (const CSize tamanho : {CSize(0, 0), CSize(700, 500), CSize(520, 420)}) {
            if (tamanho.cx) {
                editor.SetWindowPos(nullptr, 0, 0, tamanho.cx, tamanho.cy,
                                    SWP_NOMOVE | SWP_NOZORDER);
            }
            CRect cliente;
            editor.GetClientRect(cliente);
            const auto lugar = [&](int id) {
                CRect retangulo;
                editor.GetDlgItem(id)->GetWindowRect(retangulo);
                editor.ScreenToClient(retangulo);
                return retangulo;
            };
            const int cx = cliente.Width(), y = cliente.Height() - 35;
            const std::pair<int, int> botoes[] = {{kBotaoOK, cx - 254},
                                                  {kBotaoAplicar, cx - 171},
                                                  {kBotaoCancelar, cx - 88},
                                                  {kBotaoAdicionar, 15},
                                                  {kBotaoRemover, 96}};
            for (const auto& [id, x] : botoes) {
                EXPECT_EQ(lugar(id).TopLeft(), CPoint(x, y)) << id << " in " << cx;
            }
            EXPECT_EQ(lugar(kListaTermos), CRect(15, 31, cx - 15, cliente.Height() - 42));
        }
        Clicar(editor, kBotaoCancelar);
    });
}
