// The project translation dialog: its ways out, what it saves and loads, its languages, its files.
#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <set>

#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/dialogs/JanelaDeTraducao.h"
#include "translator/dialogs/AcoesSobreLinhas.h"

using Textos = std::vector<std::string>;
using Ato = std::function<void(CWnd&)>;

class TradutorProj : public JanelaDeTraducao {
  protected:
    static Ato Tecla(Qt::Key tecla) {
        return [tecla](CWnd&) { QTest::keyClick(QApplication::focusWidget(), tecla); };
    }
    static Ato Botao(int id) {
        return [id](CWnd& dialogo) { Clicar(dialogo, id); };
    }
    // A target and a line translated by hand.
    static void Trabalhar(CWnd& dialogo) {
        Escolher(dialogo, kListaDestino, "Deutsch");
        Traduzir(dialogo, "60 Hz", "60 Hertz");
    }
    static constexpr char16_t k60Hz[] = u"222";  // the key of the object with that text
};

TEST_F(TradutorProj, TheKeyboardReachesEverythingAndReadersFindANameForIt) {
    Ler();
    std::set<int> alcancados;
    Mostrar([&](CWnd& dialogo) {
        for (int passo = 0; passo < 40; ++passo) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            CWnd* foco = CWnd::GetFocus();
            alcancados.insert(foco->GetDlgCtrlID());
            auto* leitor = QAccessible::queryAccessibleInterface(WidgetOf(foco));
            EXPECT_FALSE(leitor->text(QAccessible::Name).isEmpty()) << foco->GetDlgCtrlID();
        }
    });
    EXPECT_EQ(alcancados,
              (std::set<int>{kListaDestino, kEscopoTextos, kEscopoAtributos, kFiltroNaoTraduzido,
                             kFiltroAutomatica, kFiltroManual, kFiltroImportado, kListaExpressoes,
                             kBotaoExportar, kBotaoImportar, kBotaoCarregar, kBotaoSalvar,
                             kBotaoCarregarProjeto, kBotaoSalvarProjeto, kBotaoLer, kBotaoTraduzir,
                             kBotaoSubstituir, kBotaoFechar}));
}

// Only "Ler" takes the lines along, and none of these asks about unsaved work.
TEST_F(TradutorProj, WaysOutThatDoNotAsk) {
    struct Caso {
        Ato ato;
        int resultado;
        bool ficamLinhas;
    };
    const Ato fechar = [](CWnd& dialogo) { WidgetOf(&dialogo)->close(); };
    for (const Caso& caso :
         {Caso{Tecla(Qt::Key_Return), 1, true}, Caso{Tecla(Qt::Key_Escape), 2, true},
          Caso{fechar, 2, true}, Caso{Botao(kBotaoLer), 1, false},
          Caso{Botao(kBotaoTraduzir), 42, true}}) {
        Ler();
        EXPECT_EQ(Mostrar([&](CWnd& dialogo) {
                      Trabalhar(dialogo);
                      EXPECT_TRUE(dialogo.IsWindowVisible()) << "Enter in a cell ends the cell";
                      caso.ato(dialogo);
                  }),
                  caso.resultado);
        EXPECT_EQ(janela->expressoes != nullptr, caso.ficamLinhas) << caso.resultado;
        EXPECT_EQ(projeto.caixas.textos, Textos{}) << caso.resultado;
        EXPECT_EQ(janela->GetIdiomaDestino(), u"3");
    }
    EXPECT_EQ(Registrados(k60Hz), "1=|2=60 Hz|3=60 Hertz|4=|5=|") << "recorded by Traduzir alone";
}

TEST_F(TradutorProj, FecharAsksAboutWork) {
    struct Caso {
        const char16_t* idiomaProjeto;
        Ato ato;
        int resposta;
        int resultado;
        size_t caixas;
        std::string registrados;
        size_t termosNovos;
    };
    const Ato nada = [](CWnd&) {};
    const Caso casos[] = {
        {u"1", nada, 0, 0, 0, "", 0},
        {u"1", Botao(kBotaoCarregar), kButtonNo, 0, 1, "", 0},
        {u"1", Trabalhar, kButtonNo, 0, 1, "", 0},
        {u"1", Trabalhar, kButtonCancel, kFicouAberta, 1, "", 0},
        // The project's save leaves the dictionary's nothing to do ...
        {u"1", Trabalhar, kButtonYes, 0, 2, "1=|2=60 Hz|3=60 Hertz|4=|5=|", 0},
        // ... unless it finds no source: the last language of the one list is none of the other.
        {u"5", Trabalhar, kButtonYes, 0, 2, "1=|2=60 Hz|3=60 Hertz|4=|5=|", 1},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(&caso - casos);
        Ler(caso.idiomaProjeto);
        const size_t termos = Termos();
        projeto.caixas.respostas = {caso.resposta};
        EXPECT_EQ(Mostrar([&](CWnd& dialogo) {
                      caso.ato(dialogo);
                      Clicar(dialogo, kBotaoFechar);
                  }),
                  caso.resultado);
        projeto.caixas.respostas.clear();
        EXPECT_EQ(projeto.caixas.textos.size(), caso.caixas);
        EXPECT_EQ(Registrados(k60Hz), caso.registrados);
        EXPECT_EQ(Termos(), termos + caso.termosNovos);
    }
    const auto termo = traducaoTQ::IBDIdiomas().GetTerms()->terms.back();
    EXPECT_EQ(termo.translations, (std::vector<TQString>{u"", u"", u"60 Hertz", u"", u"60 Hz"}));
}

TEST_F(TradutorProj, SavesThatLackALanguageOnlySayThatTheyAreDone) {
    const size_t termos = Termos();
    Ler(u"5");  // the source stands last
    Mostrar([&](CWnd& dialogo) {
        Trabalhar(dialogo);
        Clicar(dialogo, kBotaoSalvarProjeto);
    });
    EXPECT_EQ(Expressao(u"60 Hz").estado, traducaoTQ::Manual);
    for (const char16_t* idiomaProjeto : {u"1", u"-1", u"77"}) {
        Ler(idiomaProjeto);
        Mostrar([&](CWnd& dialogo) {
            EXPECT_EQ(TextoDe(dialogo, kListaOrigem), idiomaProjeto[0] == u'1' ? "Português" : "");
            EXPECT_EQ(EntradasDe(dialogo, kListaDestino).size(),
                      idiomaProjeto[0] == u'1' ? 4u : 5u);
            if (idiomaProjeto[0] != u'1') Trabalhar(dialogo);  // a target and no source
            Clicar(dialogo, kBotaoSalvarProjeto);
            Clicar(dialogo, kBotaoSalvar);
        });
        EXPECT_EQ(projeto.caixas.textos.size(), 2u);
    }
    EXPECT_EQ(Termos(), termos);
    EXPECT_EQ(Registrados(k60Hz), "");
}

TEST_F(TradutorProj, ASavedLineKeepsItsFormerLabelUntilTheNextRefresh) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        Trabalhar(dialogo);
        const auto antes = ColunaDe(dialogo, kEstado);
        Clicar(dialogo, kBotaoSalvarProjeto);
        EXPECT_EQ(Expressao(u"60 Hz").estado, traducaoTQ::Automatica);
        EXPECT_EQ(ColunaDe(dialogo, kEstado), antes);
        Marcar(dialogo, kFiltroManual, false);
        EXPECT_NE(ColunaDe(dialogo, kEstado), antes) << "its term is in no dictionary";
    });
    EXPECT_EQ(Expressao(u"60 Hz").estado, traducaoTQ::NaoTraduzido);
}

TEST_F(TradutorProj, TheProjectDictionaryMakesTheLinesAnew) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        Trabalhar(dialogo);
        Clicar(dialogo, kBotaoSalvarProjeto);
        Traduzir(dialogo, "60 Hz", "sixty");
        Traduzir(dialogo, "380 V", "by hand");
        Clicar(dialogo, kBotaoCarregarProjeto);
        EXPECT_EQ(TraducaoDe(dialogo, "60 Hz"), "60 Hertz");
        EXPECT_EQ(TraducaoDe(dialogo, "380 V"), "");
        EXPECT_EQ(janela->traducoes->terms.size(), janela->objetos->size());
        EXPECT_EQ(janela->traducoes->terms[0].key, -1);
    });
    Ler(u"-1");
    Mostrar([&](CWnd& dialogo) {
        Trabalhar(dialogo);
        Clicar(dialogo, kBotaoCarregarProjeto);
        EXPECT_EQ(TraducaoDe(dialogo, "60 Hz"), "60 Hertz") << "nothing is loaded";
    });
    EXPECT_EQ(janela->traducoes, nullptr);
}

// The compared column is the project's position among all languages, the copied one the target's in
// a list that lacks the source: for Deutsch that is the column of English.
TEST_F(TradutorProj, AFreshDictionaryIsMergedByTheNumbersOfTheLists) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        Clicar(dialogo, kBotaoCarregar);
        auto termo = janela->traducoes->terms[0];
        const auto antes = termo.translations;
        termo.translations[1] = u"new English";
        termo.translations[2] = u"neues Deutsch";
        traducaoTQ::IBDIdiomas().SaveTerm(termo);
        Clicar(dialogo, kBotaoCarregar);
        EXPECT_EQ(janela->traducoes->terms[0].translations, antes) << "no target, no merge";
        Escolher(dialogo, kListaDestino, "Deutsch");
        Clicar(dialogo, kBotaoCarregar);
        EXPECT_EQ(janela->traducoes->terms[0].translations[1], u"new English");
        EXPECT_EQ(janela->traducoes->terms[0].translations[2], antes[2]);
    });
}

// The dictionary is read before anything else, also where nothing is done with it.
TEST_F(TradutorProj, AFreshDictionaryIsReadWithoutATargetToo) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        Clicar(dialogo, kBotaoCarregar);
        QFile::remove(projeto.Arquivo("dictionary.db"));
        const QString antes = projeto.Registro();
        Clicar(dialogo, kBotaoCarregar);
        EXPECT_NE(projeto.Registro(), antes) << "the log tells that there is nothing to read";
    });
}

// The source's position counts the languages out of use, its list does not hold them.
TEST_F(TradutorProj, LanguagesOutOfUseShiftTheSource) {
    UsarIdioma(u"2", false);
    Ler(u"3");  // Deutsch, third of all and second of those in use
    Mostrar([](CWnd& dialogo) {
        EXPECT_EQ(EntradasDe(dialogo, kListaOrigem),
                  (Textos{"Português", "Deutsch", "Español", "Français"}));
        EXPECT_EQ(TextoDe(dialogo, kListaOrigem), "Español");
        EXPECT_EQ(EntradasDe(dialogo, kListaDestino), (Textos{"Português", "Español", "Français"}))
            << "the source is never offered";
    });
}

TEST_F(TradutorProj, ExportsWhatTheListShowsInItsOrder) {
    Ler();
    const auto linhasDe = [&](const Textos& originais, const Textos& traducoes) {
        std::string bytes;
        for (size_t i = 0; i < originais.size(); ++i)
            bytes += originais[i] + ";" + (traducoes.empty() ? "" : traducoes[i]) + "\r\n";
        return QString::fromStdString(bytes).toLatin1();
    };
    for (const bool comDestino : {false, true}) {
        const QString csv = projeto.Arquivo(comDestino ? "com.csv" : "sem.csv");
        QByteArray esperado;
        Mostrar(
            [&](CWnd& dialogo) {
                if (comDestino) Trabalhar(dialogo);
                ClicarTitulo(Linhas(dialogo), kOriginal);
                esperado = linhasDe(ColunaDe(dialogo, kOriginal),
                                    comDestino ? ColunaDe(dialogo, kTraducao) : Textos());
                Clicar(dialogo, kBotaoExportar);
            },
            csv);
        EXPECT_EQ(LerArquivo(csv).toStdString(), esperado.toStdString());
        EXPECT_EQ(esperado.contains("\r\n60 Hz;60 Hertz\r\n"), comDestino);
        EXPECT_EQ(projeto.caixas.textos.size(), comDestino ? 2u : 1u);
    }
}

// A cancelled import still refreshes, and so does what stands on the wrong rows of a sorted list.
TEST_F(TradutorProj, CancelledFileDialogsSayNothing) {
    for (const int botao : {kBotaoExportar, kBotaoImportar}) {
        Ler();
        Mostrar(
            [&](CWnd& dialogo) {
                Trabalhar(dialogo);
                ClicarTitulo(Linhas(dialogo), kTraducao);
                ClicarTitulo(Linhas(dialogo), kTraducao);
                const auto antes = ColunaDe(dialogo, kTraducao);
                Clicar(dialogo, botao);
                EXPECT_EQ(ColunaDe(dialogo, kTraducao) != antes, botao == kBotaoImportar);
            },
            QString());
        EXPECT_TRUE(projeto.caixas.textos.empty());
    }
}
