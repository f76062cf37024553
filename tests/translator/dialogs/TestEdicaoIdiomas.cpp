// KVCFGTRADELANG as a user runs it: the real window on the real table of languages.
#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>

#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/dialogs/Editores.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kNome = 0, kUso = 1;
const char* const kUsado = "In use";
const char* const kNaoUsado = "Not in use";

CListCtrl& Idiomas(CWnd& editor) { return ListaDe(editor, kListaIdiomas); }

// By the keys of the open list of options.
void EscolherUso(CWnd& editor, int linha, const char* opcao) {
    AbrirEditor(Idiomas(editor), linha, kUso);
    const bool usado = opcao == std::string(kUsado);
    QTest::keyClick(QApplication::focusWidget(), usado ? Qt::Key_End : Qt::Key_Home);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(TextoDe(Idiomas(editor), linha, kUso), opcao);
}

class EdicaoIdiomas : public TesteDeEditor {
  protected:
    void Editar(const Usuario::Ato& ato) {
        Usuario usuario;
        usuario.Entao(ato);
        usuario.Durante([this] { dicionario.Executar("KVCFGTRADELANG"); });
    }

    Dicionario dicionario{GetParam(), {{"Motor", "Engine", "Antrieb"}}};
};
NO_ARQUIVO_E_NO_SERVIDOR(EdicaoIdiomas);

}  // namespace

// Name and use as they were and as they are in the list: a change of use alone is not written, an
// unchanged row is, and any use but "1" shows as not used and becomes "0".
TEST_P(EdicaoIdiomas, TheTableOfNamesAndUses) {
    const struct {
        const char *uso, *mostrado, *nome, *opcao;
        bool escrito;
        const char* depois;
    } casos[] = {
        {"1", kUsado, nullptr, nullptr, true, "2 English 1"},
        {"0", kNaoUsado, nullptr, nullptr, true, "2 English 0"},
        {"2", kNaoUsado, nullptr, nullptr, false, "2 English 2"},
        {"1", kUsado, nullptr, kNaoUsado, false, "2 English 1"},
        {"0", kNaoUsado, nullptr, kUsado, false, "2 English 0"},
        {"2", kNaoUsado, nullptr, kUsado, false, "2 English 2"},
        {"1", kUsado, "english", nullptr, true, "2 english 1"},
        {"1", kUsado, "UK", kNaoUsado, true, "2 UK 0"},
        {"0", kNaoUsado, "UK", kUsado, true, "2 UK 1"},
        {"2", kNaoUsado, "UK", nullptr, true, "2 UK 0"},
        {"1", kUsado, "Deutsch", nullptr, true, "2 Deutsch 1"},
    };
    dicionario.AnotarEscritas();
    for (const auto& caso : casos) {
        dicionario.Sql(QStringLiteral("UPDATE BDLANGUAGE SET LANG_DESCR = 'English', LANG_USE = "
                                      "'%1' WHERE LANG_KEY = '2'")
                           .arg(caso.uso));
        dicionario.Sql("DELETE FROM STEPS");
        Editar([&](CWnd& editor) {
            EXPECT_EQ(TextoDe(Idiomas(editor), 1, kUso), caso.mostrado);
            if (caso.nome) Digitar(Idiomas(editor), 1, kNome, caso.nome);
            if (caso.opcao) EscolherUso(editor, 1, caso.opcao);
            Clicar(editor, kBotaoOK);
        });
        EXPECT_EQ(dicionario.Idiomas()[1], caso.depois);
        std::vector<std::string> escritas{"update Português", "update Deutsch"};
        const std::string nome = caso.nome ? caso.nome : "English";
        if (caso.escrito) escritas.insert(escritas.begin() + 1, "update " + nome);
        EXPECT_EQ(dicionario.Escritas(), escritas) << caso.depois;
    }
    EXPECT_EQ(dicionario.Termos(), (Linhas{{"Motor", "Engine", "Antrieb"}}));
}

// Each save compares with what the one before has written, and the list stays as it is.
TEST_P(EdicaoIdiomas, AppliesStepByStep) {
    Editar([&](CWnd& editor) {
        EXPECT_EQ(LinhasDe(Idiomas(editor)),
                  (Linhas{{"Português", kUsado}, {"English", kUsado}, {"Deutsch", kUsado}}));
        EscolherUso(editor, 1, kNaoUsado);
        Clicar(editor, kBotaoAplicar);
        dicionario.Esperar();
        EXPECT_EQ(dicionario.Idiomas()[1], "2 English 1");
        EXPECT_EQ(TextoDe(Idiomas(editor), 1, kUso), kNaoUsado);
        Digitar(Idiomas(editor), 1, kNome, "UK");
        Clicar(editor, kBotaoAplicar);
        dicionario.Esperar();
        EXPECT_EQ(dicionario.Idiomas()[1], "2 UK 0");
        EscolherUso(editor, 1, kUsado);
        Clicar(editor, kBotaoOK);
    });
    EXPECT_THAT(dicionario.Idiomas(), ElementsAre("1 Português 1", "2 UK 0", "3 Deutsch 1"));
}

TEST_P(EdicaoIdiomas, IsLeftWithoutAWriteAndStaysEmptyWithoutLanguages) {
    dicionario.AnotarEscritas();
    const Usuario::Ato saidas[] = {
        [](CWnd& editor) { Clicar(editor, kBotaoCancelar); },
        [](CWnd& editor) { QTest::keyClick(WidgetOf(&Idiomas(editor)), Qt::Key_Escape); },
        [](CWnd& editor) { WidgetOf(&editor)->close(); },
    };
    for (const auto& sair : saidas) {
        Editar([&](CWnd& editor) {
            Digitar(Idiomas(editor), 0, kNome, "PT");
            sair(editor);
        });
    }
    EXPECT_THAT(dicionario.Escritas(), IsEmpty());
    dicionario.Sql("DELETE FROM BDLANGUAGE");
    Editar([](CWnd& editor) {
        EXPECT_EQ(Idiomas(editor).GetItemCount(), 0);
        EXPECT_EQ(Idiomas(editor).GetHeaderCtrl()->GetItemCount(), 2);
        Clicar(editor, kBotaoOK);
    });
    EXPECT_THAT(dicionario.Escritas(),
                ElementsAre("delete Português", "delete English", "delete Deutsch"));
}
