// The wizard of the language switch, and KVTRANSLATEASSIST as a user runs it on a real drawing.
#include <gmock/gmock.h>

#include <QTest>

#include "platform/text/Conversion.h"
#include "platform/window/CListBox.h"
#include "platform/window/CPropertySheet.h"
#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/dialogs/Projeto.h"
#include "tests/translator/dialogs/Usuario.h"
#include "translator/dialogs/ui/IWTrocaIdioma.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Controls of the pages.
constexpr int kPassos = 218, kDestino = 252, kOrigem = 253, kGrupos = 261, kAtributos = 262,
              kResumo = 263;

const std::string kPronto =
    "The project language has been changed. Kelvara Circuit is now updating the pages.";

std::string Resumo(const std::string& origem, const std::string& destino, const char* grupos,
                   const char* atributos) {
    return "Original language: " + origem + "\nTarget language: " + destino +
           "\n\n\nOptions:\n     Redefine page groups: " + grupos +
           "\n     Translate attributes: " + atributos + "\n";
}

// The buttons that can be pressed: back, next, finish, cancel.
std::string Botoes(CWnd& assistente) {
    std::string botoes;
    for (const auto& [id, letra] :
         {std::pair(ID_WIZBACK, 'b'), {ID_WIZNEXT, 'n'}, {ID_WIZFINISH, 'f'}, {IDCANCEL, 'c'}}) {
        if (assistente.GetDlgItem(id)->IsWindowEnabled()) botoes += letra;
    }
    return botoes;
}

// The step that is marked, and whether another one can be.
void EsperarPasso(CWnd& assistente, int passo) {
    auto& lista = dynamic_cast<CListBox&>(*PaginaDe(assistente).GetDlgItem(kPassos));
    EXPECT_EQ(lista.GetCount(), 3);
    EXPECT_EQ(lista.GetCurSel(), passo);
    QWidget* widget = WidgetOf(&lista);
    QWidget* area = widget->findChild<QWidget*>("qt_scrollarea_viewport");
    ASSERT_TRUE(area);
    for (const int y : {5, 20, 35}) QTest::mouseClick(area, Qt::LeftButton, {}, QPoint(20, y));
    EXPECT_EQ(lista.GetCurSel(), passo);
    EXPECT_EQ(dynamic_cast<CPropertySheet&>(assistente).GetActiveIndex(), passo);
}

Usuario::Ato Apertar(int botao) {
    return [botao](CWnd& assistente) { Clicar(assistente, botao); };
}

// The wizard alone, in a host that has its texts.
class Assistente : public testing::Test {
  protected:
    // Two languages share a name; one of them is not in use.
    static IWTrocaIdioma::ListaIdiomas Idiomas() {
        return {{u"1", u"Português", u"1"},
                {u"2", u"Latim", u"0"},
                {u"3", u"English", u"2"},
                {u"4", u"English", u"1"},
                {u"5", u"Deutsch", u"1"}};
    }
    int Mostrar(IWTrocaIdioma& assistente, Usuario& usuario) {
        int fim = 0;
        usuario.Durante([&] { fim = assistente.DoModal(); });
        return fim;
    }

    Projeto projeto{"block_pages.dxf"};
};

// The command on a drawing that is German and recorded in two languages.
class ComandoAssistente : public testing::Test {
  protected:
    ComandoAssistente() {
        const QString gravado = projeto.Arquivo("gravado.dxf");
        projeto.Kelvara({"translate", projeto.Arquivo("block_pages.dxf"), "--from", "1", "--to",
                         "Deutsch", "--record", "-o", gravado});
        Abrir(gravado);
    }
    void Abrir(const QString& arquivo) {
        projeto.documento = &projeto.anfitriao.Documents().Open(arquivo.toStdString());
        projeto.documento->Lisp().EvaluateLisp(
            u"(defun atualizarpaginas () (setq chamadas (append chamadas '(\"pages\"))))", nullptr);
        projeto.documento->Lisp().EvaluateLisp(
            u"(defun atualizaDescrPags () (setq chamadas (append chamadas '(\"titles\"))))",
            nullptr);
    }
    std::vector<std::string> ChamadasLisp() {
        std::vector<std::string> chamadas;
        CMxValueNode* lista = nullptr;
        projeto.documento->Lisp().GetLispVariable(u"chamadas", &lista);
        for (CMxValueNode* no = lista; no; no = no->next) {
            chamadas.push_back(text::NarrowFromWide(no->value.string));
        }
        projeto.documento->Lisp().ReleaseValueChain(lista);
        return chamadas;
    }
    int32_t Idioma() { return projeto.anfitriao.ProjectLanguage(*projeto.documento); }
    std::string Textos() {
        projeto.Salvar("salvo.dxf");
        return projeto.Kelvara({"texts", projeto.Arquivo("salvo.dxf")});
    }
    // As far as the last page, with the options clicked away or not.
    void IrAoResumo(Usuario& usuario, const char* destino, bool opcoes) {
        usuario.Entao([=](CWnd& assistente) { Escolher(PaginaDe(assistente), kDestino, destino); })
            .Entao(Apertar(ID_WIZNEXT))
            .Entao([=](CWnd& assistente) {
                Marcar(PaginaDe(assistente), kGrupos, opcoes);
                Marcar(PaginaDe(assistente), kAtributos, opcoes);
                Clicar(assistente, ID_WIZNEXT);
            });
    }

    Projeto projeto{"block_pages.dxf"};
};

}  // namespace

// A target that is chosen beforehand, none ("-1"), and those that the list does not have.
TEST_F(Assistente, OpensWithTheTargetThatWasChosenBeforehand) {
    const struct {
        const char16_t *origem, *destino;
        const char *mostraOrigem, *mostraDestino, *botoes;
    } casos[] = {
        {u"1", u"5", "Português", "Deutsch", "nc"},
        {u"5", u"5", "Deutsch", "Deutsch", "nc"},
        {u"1", u"-1", "Português", "", "c"},
        {u"2", u"3", "", "", "nc"},
        {u"-1", u"77", "", "", "nc"},
    };
    for (const auto& caso : casos) {
        IWTrocaIdioma assistente(u"wizard", nullptr, 0);
        assistente.Iniciar(Idiomas(), caso.origem, caso.destino);
        Usuario usuario;
        usuario
            .Entao([&](CWnd& janela) {
                EXPECT_EQ(TextoDe(PaginaDe(janela), kOrigem), caso.mostraOrigem);
                EXPECT_FALSE(PaginaDe(janela).GetDlgItem(kOrigem)->IsWindowEnabled());
                EXPECT_EQ(TextoDe(PaginaDe(janela), kDestino), caso.mostraDestino);
                EXPECT_EQ(EntradasDe(PaginaDe(janela), kDestino),
                          (std::vector<std::string>{"Português", "English", "Deutsch"}));
                EXPECT_EQ(Botoes(janela), caso.botoes);
                EsperarPasso(janela, 0);
            })
            .Entao(Apertar(IDCANCEL));
        EXPECT_EQ(Mostrar(assistente, usuario), IDCANCEL);
        EXPECT_EQ(assistente.GetIdiomaDestino(), caso.destino);
    }
}

TEST_F(Assistente, CannotLeaveTheFirstPageWithoutALanguageInUse) {
    IWTrocaIdioma assistente(u"wizard", nullptr, 0);
    assistente.Iniciar({{u"1", u"Português", u"0"}}, u"1", u"-1");
    Usuario usuario;
    usuario
        .Entao([](CWnd& janela) {
            EXPECT_THAT(EntradasDe(PaginaDe(janela), kDestino), IsEmpty());
            QTest::keyClick(WidgetOf(PaginaDe(janela).GetDlgItem(kDestino)), Qt::Key_Down);
        })
        .Entao([](CWnd& janela) {
            EXPECT_EQ(Botoes(janela), "c");
            WidgetOf(&janela)->close();
        });
    EXPECT_EQ(Mostrar(assistente, usuario), IDCANCEL);
}

// Back and forth: what was chosen is kept, the review is written anew.
TEST_F(Assistente, KeepsTheAnswersBackAndForth) {
    IWTrocaIdioma assistente(u"wizard", nullptr, 0);
    assistente.Iniciar(Idiomas(), u"1", u"-1");
    Usuario usuario;
    usuario
        .Entao([](CWnd& janela) {
            EXPECT_EQ(Botoes(janela), "c");
            EXPECT_EQ(TextoDe(janela, ID_WIZNEXT), "Next >");
            Escolher(PaginaDe(janela), kDestino, "Deutsch");
        })
        .Entao(Apertar(ID_WIZNEXT))
        .Entao([](CWnd& janela) {
            EXPECT_EQ(Botoes(janela), "bnc");
            EsperarPasso(janela, 1);
            EXPECT_TRUE(PaginaDe(janela).IsDlgButtonChecked(kGrupos));
            EXPECT_TRUE(PaginaDe(janela).IsDlgButtonChecked(kAtributos));
            Marcar(PaginaDe(janela), kGrupos, false);
            Clicar(janela, ID_WIZNEXT);
        })
        .Entao([](CWnd& janela) {
            EXPECT_EQ(Botoes(janela), "bfc");
            EsperarPasso(janela, 2);
            EXPECT_EQ(TextoDe(PaginaDe(janela), kResumo),
                      Resumo("Português", "Deutsch", "No", "Yes"));
            Clicar(janela, ID_WIZBACK);
        })
        .Entao([](CWnd& janela) {
            EXPECT_FALSE(PaginaDe(janela).IsDlgButtonChecked(kGrupos));
            Marcar(PaginaDe(janela), kGrupos, true);
            Marcar(PaginaDe(janela), kAtributos, false);
            Clicar(janela, ID_WIZBACK);
        })
        .Entao([](CWnd& janela) {
            EXPECT_EQ(TextoDe(PaginaDe(janela), kDestino), "Deutsch");
            EXPECT_EQ(Botoes(janela), "nc");
            EsperarPasso(janela, 0);
            Escolher(PaginaDe(janela), kDestino, "English");
            Clicar(janela, ID_WIZNEXT);
        })
        .Entao(Apertar(ID_WIZNEXT))
        .Entao([](CWnd& janela) {
            EXPECT_EQ(TextoDe(PaginaDe(janela), kResumo),
                      Resumo("Português", "English", "Yes", "No"));
            Clicar(janela, ID_WIZFINISH);
        });
    EXPECT_EQ(Mostrar(assistente, usuario), ID_WIZFINISH);
    EXPECT_EQ(assistente.GetIdiomaDestino(), u"3") << "the first language of that name";
    EXPECT_TRUE(assistente.GetRedefinirGrupos());
    EXPECT_FALSE(assistente.GetTraduzirAtributos());
}

TEST_F(ComandoAssistente, FinishedItSwitchesTheProjectWhateverTheOptions) {
    const std::string antes = projeto.Bytes();
    const std::string original = projeto.Kelvara({"texts", projeto.Arquivo("block_pages.dxf")});
    for (const bool opcoes : {true, false}) {
        const int desenhado = projeto.documento->Screen().Redraws();
        Usuario usuario;
        IrAoResumo(usuario, "Português", opcoes);
        usuario.Entao([&](CWnd& janela) {
            const char* sim = opcoes ? "Yes" : "No";
            EXPECT_EQ(TextoDe(PaginaDe(janela), kResumo), Resumo("Deutsch", "Português", sim, sim));
            EXPECT_EQ(Idioma(), 3);
            Clicar(janela, ID_WIZFINISH);
        });
        usuario.Durante([&] { EXPECT_TRUE(projeto.Executar("KVTRANSLATEASSIST").done); });
        EXPECT_EQ(Idioma(), 1);
        EXPECT_EQ(projeto.caixas.textos.back(), kPronto);
        // One for the texts and one for the page groups.
        EXPECT_EQ(projeto.documento->Screen().Redraws() - desenhado, opcoes ? 2 : 1);
        EXPECT_TRUE(Textos() == original) << "attributes too, whatever the second option says";
        projeto.documento->Undo();
        EXPECT_EQ(Idioma(), 3);
        EXPECT_TRUE(projeto.Bytes() == antes);
    }
    EXPECT_THAT(ChamadasLisp(), ElementsAre("pages", "titles", "pages", "titles"));
}

TEST_F(ComandoAssistente, CancelledItOnlyRefreshesThePages) {
    const std::string antes = projeto.Bytes();
    const Usuario::Ato saidas[] = {
        Apertar(IDCANCEL),
        [](CWnd& janela) { QTest::keyClick(WidgetOf(&janela), Qt::Key_Escape); },
        [](CWnd& janela) { WidgetOf(&janela)->close(); },
    };
    for (const auto& sair : saidas) {
        Usuario usuario;
        usuario.Entao([](CWnd& janela) {
            EXPECT_EQ(TextoDe(PaginaDe(janela), kOrigem), "Deutsch");
            EXPECT_EQ(TextoDe(PaginaDe(janela), kDestino), "");
        });
        IrAoResumo(usuario, "English", true);
        usuario.Entao(sair);
        usuario.Durante([&] { EXPECT_TRUE(projeto.Executar("KVTRANSLATEASSIST").done); });
    }
    EXPECT_EQ(Idioma(), 3);
    EXPECT_TRUE(projeto.Bytes() == antes);
    EXPECT_THAT(projeto.caixas.textos, IsEmpty());
    EXPECT_THAT(ChamadasLisp(),
                ElementsAre("pages", "titles", "pages", "titles", "pages", "titles"));
}

// The command's scan stops at the first loose entity; the project's language has changed by then,
// and stays changed until the user undoes the command.
TEST_F(ComandoAssistente, FailsOnAMixedDrawingWithALineInTheLogAndAMessage) {
    const QString misto = projeto.Arquivo("misto.dxf");
    projeto.Kelvara({"translate", KV_SOURCE_DIR "/examples/control_panel.dxf", "--from", "1",
                     "--to", "Deutsch", "--record", "-o", misto});
    Abrir(misto);
    const std::string antes = projeto.Bytes();
    Usuario usuario;
    IrAoResumo(usuario, "Português", true);
    usuario.Entao(Apertar(ID_WIZFINISH));
    host::CommandOutcome fim;
    usuario.Durante([&] { fim = projeto.Executar("KVTRANSLATEASSIST"); });
    EXPECT_FALSE(fim.done);
    const std::string motivo = text::NarrowFromWide(fim.failure);
    EXPECT_THAT(motivo, HasSubstr("is not an OdDbBlockReference"));
    for (const char* operacao : {"traducaoTQ::ITradCad::BuscarAtributos : ", "JanelaTraducao : ",
                                 "KVTRANSLATEASSIST : "}) {
        EXPECT_THAT(projeto.Registro().toStdString(), HasSubstr(operacao + motivo));
    }
    EXPECT_THAT(projeto.caixas.textos, ElementsAre("KVTRANSLATEASSIST : " + motivo));
    EXPECT_THAT(ChamadasLisp(), IsEmpty());
    EXPECT_EQ(Idioma(), 1);
    projeto.documento->Undo();
    EXPECT_EQ(Idioma(), 3);
    EXPECT_TRUE(projeto.Bytes() == antes);
}
