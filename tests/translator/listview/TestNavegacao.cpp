// Where keys lead from an open editor, and which keys it swallows.
#include <QApplication>

#include "tests/translator/listview/Bancada.h"
#include "translator/listview/CIListViewEditItem.h"

using namespace bancada;
using namespace ListView;

class Navegacao : public Bancada {};

TEST_F(Navegacao, ClassesLimitsAndPassingKeys) {
    struct Caso {
        int32_t format, limit;
        const char16_t* before;
        const char* typed;
        std::string after;
    };
    const Caso casos[] = {
        {1, 9, u"old", "new text", "new text"},  // all the text was selected
        {1, 3, u"", "abcd", "abc"},
        {1, 3, u"abc", "x", "abc"},  // full, although all of it is selected
        {DIGITOS, 9, u"", "a1,2.3-4_", "1,2.3-4"},
        {IDENTIFICADOR, 9, u"", "a1B_z. ", "aB_z"},
    };
    for (const Caso& caso : casos) {
        const int row = lista.GetItemCount();
        Linha(TEXTO, Valores({caso.before}), caso.limit, caso.format);
        Clicar(row, 1);
        Digitar(caso.typed);
        EXPECT_EQ(TextoDoEditor(), caso.after);
        dialogo.antes.SetFocus();
        EXPECT_EQ(Texto(row), caso.after);
    }
}

TEST_F(Navegacao, KeysLeadToOtherRows) {
    struct Caso {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int from, to;  // -1 the list, -2 its parent
    };
    const Caso casos[] = {
        {Qt::Key_Tab, Qt::NoModifier, 0, 1},        {Qt::Key_Tab, Qt::NoModifier, 2, -1},
        {Qt::Key_Tab, Qt::ShiftModifier, 1, 0},     {Qt::Key_Backtab, Qt::ShiftModifier, 0, -1},
        {Qt::Key_Up, Qt::NoModifier, 1, 0},         {Qt::Key_Up, Qt::NoModifier, 0, 0},
        {Qt::Key_Down, Qt::NoModifier, 1, 2},       {Qt::Key_Down, Qt::NoModifier, 2, 2},
        {Qt::Key_Up, Qt::ShiftModifier, 1, 1},      {Qt::Key_Down, Qt::ShiftModifier, 1, 1},
        {Qt::Key_Return, Qt::NoModifier, 1, -2},    {Qt::Key_Escape, Qt::NoModifier, 1, -2},
        {Qt::Key_Enter, Qt::KeypadModifier, 1, -2}, {Qt::Key_Escape, Qt::ShiftModifier, 1, -2},
    };
    LinhasDeTexto(3);
    for (const Caso& caso : casos) {
        SCOPED_TRACE(testing::Message() << "key " << caso.key << " from " << caso.from);
        Clicar(caso.from, 1);
        Digitar("x");
        dialogo.ouvido.clear();
        Tecla(caso.key, caso.modifiers);
        const bool left = caso.to != caso.from;
        EXPECT_EQ(Texto(caso.from), left ? "x" : std::to_string(caso.from));
        EXPECT_EQ(TextoDoEditor(), caso.to < 0 ? "no editor"
                                   : left      ? std::to_string(caso.to)
                                               : "x");
        EXPECT_EQ(CWnd::GetFocus() == &lista, caso.to < 0) << "the dialog hands its focus on";
        const bool sent = !dialogo.ouvido.empty() && dialogo.ouvido.back().starts_with("key");
        EXPECT_EQ(sent, caso.to == -2);
        EXPECT_TRUE(dialogo.IsWindowVisible()) << "the key ended the dialog";
        dialogo.antes.SetFocus();
        for (int row = 0; row < 3; ++row) lista.SetValor(row, 1, TQString(row, 0));
    }
}

TEST_F(Navegacao, AmpersandAndBracketAreNoArrows) {
    LinhasDeTexto(3);
    Clicar(1, 1);
    QTest::keyClick(QApplication::focusWidget(), '&', Qt::ShiftModifier);
    QTest::keyClick(QApplication::focusWidget(), '(', Qt::ShiftModifier);
    EXPECT_EQ(TextoDoEditor(), "&(");
}

TEST_F(Navegacao, AFullTextAndAClassSwallowNavigation) {
    struct Caso {
        int32_t format, limit;
        Qt::Key key;
    };
    for (const Caso& caso : {Caso{1, 1, Qt::Key_Tab}, Caso{1, 1, Qt::Key_Return},
                             Caso{1, 1, Qt::Key_Down}, Caso{DIGITOS, 9, Qt::Key_Escape},
                             Caso{DIGITOS, 9, Qt::Key_Down}, Caso{IDENTIFICADOR, 9, Qt::Key_Tab}}) {
        const int row = lista.GetItemCount();
        Linha(TEXTO, Valores({u"7"}), caso.limit, caso.format);
        Linha(TEXTO, Valores({u"other"}), caso.limit, caso.format);
        Clicar(row, 1);
        Tecla(caso.key);
        EXPECT_EQ(TextoDoEditor(), "7") << caso.key;
        dialogo.antes.SetFocus();
    }
}

TEST_F(Navegacao, WalkingOffTheListReachesTheNextStop) {
    LinhasDeTexto(2);
    EXPECT_FALSE(lista.BeginEdit(2, 1));
    EXPECT_EQ(CWnd::GetFocus(), &dialogo.depois);
    EXPECT_FALSE(lista.BeginEdit(-1, 1));
    EXPECT_EQ(CWnd::GetFocus(), &dialogo.antes);
    dialogo.depois.ShowWindow(SW_HIDE);
    lista.BeginEdit(2, 1);
    EXPECT_EQ(CWnd::GetFocus(), &dialogo.antes) << "around the end, past what is hidden";
    dialogo.antes.ShowWindow(SW_HIDE);
    lista.BeginEdit(-1, 1);
    EXPECT_EQ(CWnd::GetFocus(), &lista) << "nothing else is there";
    EXPECT_TRUE(dialogo.ouvido.empty());
}

TEST_F(Navegacao, F2GoesThroughTheEditableCellsOfARow) {
    lista.AddColumn(u"Third", 60, false);
    LinhasDeTexto(1);
    lista.SetSubItem(0, 2, u"", u"", TQString(u"third"), 9, TEXTO, 1, true, 0);
    lista.SetItemState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    lista.SetFocus();
    for (const char* expected : {"0", "third", "0"}) {
        Tecla(Qt::Key_F2);
        EXPECT_EQ(TextoDoEditor(), expected);
    }
}

TEST_F(Navegacao, ScrollToColumn) {
    lista.AddColumn(u"Wide", 600, false);
    CRect client;
    lista.GetClientRect(client);
    lista.ScrollToColumn(2, true);
    EXPECT_EQ(lista.GetScrollPos(SB_HORZ), 0) << "partly in view";
    lista.ScrollToColumn(2, false);
    EXPECT_EQ(lista.GetScrollPos(SB_HORZ), 220) << "wider than the view: to its left edge";
    lista.ScrollToColumn(1, false);
    EXPECT_EQ(lista.GetScrollPos(SB_HORZ), 100);
    lista.SetColumnWidth(0, client.Width() - 20);
    lista.ScrollToColumn(0, false);
    lista.ScrollToColumn(1, false);
    EXPECT_EQ(lista.GetScrollPos(SB_HORZ), 100) << "right edge at the view's";
}
