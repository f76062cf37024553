// The list of the project translation dialog, and the dialog at other sizes.
#include <QApplication>
#include <QTest>
#include <algorithm>
#include <random>

#include "platform/text/Conversion.h"
#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/dialogs/JanelaDeTraducao.h"
#include "translator/dialogs/ui/OrdemDeLista.h"

class ListaTradutorProj : public JanelaDeTraducao {
  protected:
    // What the lines hold, in their own order, which is that of a list that is not sorted.
    std::vector<std::string> Das(TQString traducaoTQ::structExpressao::*campo) {
        std::vector<std::string> textos;
        for (const auto& expressao : *janela->expressoes) {
            textos.push_back(text::NarrowFromWide((*expressao).*campo));
        }
        return textos;
    }
    static CListCtrl& Traduzidas(CWnd& dialogo) {  // into German, from the dictionary
        Escolher(dialogo, kListaDestino, "Deutsch");
        Clicar(dialogo, kBotaoCarregar);
        return Linhas(dialogo);
    }
    static bool EmOrdem(const CListCtrl& lista, int coluna, int sentido) {
        for (int linha = 1; linha < lista.GetItemCount(); ++linha) {
            const CString antes = lista.GetItemText(linha - 1, coluna);
            if (antes.CompareNoCase(lista.GetItemText(linha, coluna)) * sentido > 0) return false;
        }
        return true;
    }
    CRect Lugar(CWnd& dialogo, int id) {
        CRect lugar;
        dialogo.GetDlgItem(id)->GetWindowRect(lugar);
        dialogo.ScreenToClient(lugar);
        return lugar;
    }
};

using traducaoTQ::structExpressao;

// One direction for all columns: each click on any of them turns it round.
TEST_F(ListaTradutorProj, TitlesSortAndTurnTheOrderRound) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        CListCtrl& lista = Traduzidas(dialogo);
        ClicarTitulo(lista, kOriginal);
        const int sentido = EmOrdem(lista, kOriginal, 1) ? 1 : -1;
        EXPECT_TRUE(EmOrdem(lista, kOriginal, sentido));
        ClicarTitulo(lista, kTraducao);
        EXPECT_TRUE(EmOrdem(lista, kTraducao, -sentido));
        ClicarTitulo(lista, kOriginal);
        EXPECT_TRUE(EmOrdem(lista, kOriginal, sentido));
    });
}

// Whatever the keys make of the beginnings of texts: case, code points beyond 16 bits, halves of
// them, and texts that begin alike.
TEST(OrdemDeLista, IsThatOfCompareNoCaseAndStable) {
    CWnd pai;
    ASSERT_TRUE(pai.Create(u"Window", u"", WS_CHILD, CRect(0, 0, 100, 100), nullptr, 1));
    CListCtrl lista;
    ASSERT_TRUE(lista.Create(WS_CHILD | LVS_REPORT, CRect(0, 0, 100, 100), &pai, 2));
    lista.InsertColumn(0, u"", LVCFMT_LEFT, 50);
    lista.InsertColumn(1, u"", LVCFMT_LEFT, 50);
    const char16_t* partes[] = {u"a",          u"A",      u"b",      u"\u00df",
                                u"\u1e9e",     u"\u00c9", u"\u00e9", u"\U00010400",
                                u"\U00010428", u"\xd801", u"\uff41", u" "};
    std::mt19937 sorte(3);
    std::vector<std::pair<std::u16string, LPARAM>> linhas;
    for (int i = 0; i < 800; ++i) {
        std::u16string texto;
        for (unsigned parte = sorte() % 6; parte > 0; --parte) {
            texto += partes[sorte() % std::size(partes)];
        }
        linhas.emplace_back(texto, i + 1);
        lista.InsertItem(i, u"");
        lista.SetItemText(i, 1, texto.c_str());
        lista.SetItemData(i, i + 1);
    }
    static CListCtrl* ordenada;
    ordenada = &lista;
    for (const bool crescente : {true, false}) {
        std::stable_sort(linhas.begin(), linhas.end(), [&](const auto& a, const auto& b) {
            return (crescente ? 1 : -1) * text::CompareNoCase(a.first, b.first) < 0;
        });
        constexpr PFNLVCOMPARE comparar[] = {
            [](LPARAM a, LPARAM b, LPARAM) { return CompararTextos(*ordenada, a, b, false); },
            [](LPARAM a, LPARAM b, LPARAM) { return CompararTextos(*ordenada, a, b, true); }};
        OrdenarPorColuna(lista, comparar[crescente], 1);
        for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
            ASSERT_EQ(lista.GetItemData(linha), linhas[size_t(linha)].second) << linha;
        }
    }
}

TEST_F(ListaTradutorProj, AChangeOfTheTargetPutsTranslationsOnTheWrongRowsOfASortedList) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        CListCtrl& lista = Traduzidas(dialogo);
        ClicarTitulo(lista, kOriginal);
        const auto ordem = ColunaDe(dialogo, kOriginal);
        EXPECT_NE(ordem, Das(&structExpressao::original));
        Escolher(dialogo, kListaDestino, "English");
        EXPECT_EQ(ColunaDe(dialogo, kOriginal), ordem);
        EXPECT_EQ(ColunaDe(dialogo, kTraducao), Das(&structExpressao::traducao));
        EXPECT_EQ(ColunaDe(dialogo, kEstado), Das(&structExpressao::rotuloEstado));
        Traduzir(dialogo, "60 Hz", "sixty");
        EXPECT_EQ(Expressao(u"60 Hz").traducao, u"sixty") << "found by its original all the same";
        Marcar(dialogo, kFiltroImportado, false);
        EXPECT_EQ(ColunaDe(dialogo, kOriginal), Das(&structExpressao::original));
        EXPECT_EQ(ColunaDe(dialogo, kTraducao), Das(&structExpressao::traducao));
        EXPECT_EQ(TraducaoDe(dialogo, "60 Hz"), "sixty");
        Escolher(dialogo, kListaDestino, "Deutsch");
        EXPECT_EQ(TraducaoDe(dialogo, "60 Hz"), "sixty") << "typed for another language, and kept";
    });
}

// A click on a title ends an open editor first: its value goes to the row that it stood over.
TEST_F(ListaTradutorProj, ATitleIsClickedWithAnEditorOpen) {
    Ler();
    Mostrar([&](CWnd& dialogo) {
        Escolher(dialogo, kListaDestino, "Deutsch");
        CListCtrl& lista = Linhas(dialogo);
        for (const char* original : {"60 Hz", "Notas gerais:"}) {
            AbrirEditor(lista, LinhaCom(lista, kOriginal, original), kTraducao);
            QTest::keyClicks(QApplication::focusWidget(), original);
            ClicarTitulo(lista, kOriginal);
            EXPECT_EQ(TraducaoDe(dialogo, original), original);
        }
        for (const auto& expressao : *janela->expressoes) {
            const bool digitada = !expressao->traducao.empty();
            EXPECT_EQ(digitada, expressao->traducao == expressao->original);
        }
    });
}

TEST_F(ListaTradutorProj, ControlsFollowTheEdges) {
    const struct {
        int id, direita, base;
    } casos[] = {{kBotaoFechar, 85, 33},
                 {kBotaoSubstituir, 163, 33},
                 {kBotaoTraduzir, 241, 33},
                 {kBotaoLer, 319, 33},
                 {kGrupoDicionarioProjeto, 191, 93},
                 {kGrupoDicionario, 375, 93},
                 {kGrupoArquivos, 559, 93},
                 {kBotaoSalvarProjeto, 98, 74},
                 {kBotaoCarregarProjeto, 176, 74},
                 {kBotaoSalvar, 282, 74},
                 {kBotaoCarregar, 360, 74},
                 {kBotaoImportar, 466, 74},
                 {kBotaoExportar, 544, 74}};
    Ler();
    Mostrar([&](CWnd& dialogo) {
        CRect cliente, lista = Lugar(dialogo, kListaExpressoes);
        dialogo.GetClientRect(cliente);
        CRect pedido(10, 20, 30, 40);  // the smallest size is that of the first one and its frame
        dialogo.SendMessage(WM_SIZING, WMSZ_BOTTOMRIGHT, reinterpret_cast<LPARAM>(&pedido));
        EXPECT_EQ(pedido, CRect(10, 20, 10 + cliente.Width() + 8, 20 + cliente.Height() + 33));
        for (const CSize tamanho : {CSize(1000, 800), CSize(760, 560)}) {
            const CPoint canto = lista.TopLeft();
            dialogo.SetWindowPos(nullptr, 0, 0, tamanho.cx, tamanho.cy, SWP_NOMOVE | SWP_NOZORDER);
            dialogo.GetClientRect(cliente);
            for (const auto& caso : casos) {
                EXPECT_EQ(Lugar(dialogo, caso.id).TopLeft(),
                          CPoint(cliente.right - caso.direita, cliente.bottom - caso.base))
                    << caso.id;
            }
            lista = Lugar(dialogo, kListaExpressoes);
            EXPECT_EQ(lista, CRect(canto, CSize(cliente.right - 20, cliente.bottom - 223)));
        }
    });
}

// Every second size repaints what did not move too.
TEST_F(ListaTradutorProj, EverySecondSizeRepaintsTheWholeDialog) {
    class Pinturas : public QObject {
      public:
        bool eventFilter(QObject*, QEvent* evento) override {
            quantas += evento->type() == QEvent::Paint;
            return false;
        }
        int quantas = 0;
    } pinturas;
    Ler();
    Mostrar([&](CWnd& dialogo) {
        CRect cliente;
        dialogo.GetClientRect(cliente);
        QApplication::processEvents();
        WidgetOf(dialogo.GetDlgItem(kGrupoConfiguracoes))->installEventFilter(&pinturas);
        std::vector<int> porVez;
        for (int vez = 0; vez < 4; ++vez) {
            pinturas.quantas = 0;
            janela->OnSize(SIZE_RESTORED, cliente.right, cliente.bottom);
            QApplication::processEvents();
            porVez.push_back(pinturas.quantas);
        }
        EXPECT_EQ(porVez[0] + porVez[1], 1);
        EXPECT_EQ(porVez[0], porVez[2]);
        EXPECT_EQ(porVez[1], porVez[3]);
    });
}
