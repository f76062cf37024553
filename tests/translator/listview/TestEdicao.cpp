// How an edit begins and ends, who is told of it, and windows that go in the middle of one.
#include <QAbstractScrollArea>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QWheelEvent>

#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/listview/Bancada.h"

using namespace bancada;
using namespace ListView;
using Ouvido = std::vector<std::string>;

class Edicao : public Bancada {
  protected:
    QAbstractScrollArea& Area() { return static_cast<QAbstractScrollArea&>(*WidgetOf(&lista)); }
    void Rolar(QPoint degrees) {
        QWidget* client = HandleOf(WidgetOf(&lista))->client;
        const QPointF at(20, 60);
        QWheelEvent wheel(at, client->mapToGlobal(at), {}, degrees, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(client, &wheel);
    }
    void ArrastarColuna() {
        QWidget* header = WidgetOf(&lista)->findChild<QHeaderView*>()->viewport();
        QTest::mousePress(header, Qt::LeftButton, {}, QPoint(99, 5));
        QMouseEvent move(QEvent::MouseMove, QPointF(139, 5), header->mapToGlobal(QPointF(139, 5)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(header, &move);
        QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(139, 5));
    }
};

TEST_F(Edicao, IsToldInOrderWithTheNewValueInPlace) {
    LinhasDeTexto(2);
    Clicar(1, 1);
    EXPECT_EQ(lista.editando, 1);
    EXPECT_EQ(dialogo.ouvido, Ouvido{"begin"});
    Digitar("new");
    EXPECT_EQ(Texto(1), "1") << "nothing before the end";
    QTest::mouseClick(WidgetOf(&dialogo.depois), Qt::LeftButton);
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "edited 1,1 new", "end"}));
    EXPECT_EQ(lista.editando, 0);
    EXPECT_EQ(lista.GetValor(1, 1, 0), u"new");
}

TEST_F(Edicao, DoesNotBeginWhereNothingCanBeEdited) {
    LinhasDeTexto(1);
    Clicar(0, 0);
    EXPECT_EQ(Editor(), nullptr);
    lista.bloqueado = true;
    Clicar(0, 1);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_TRUE(dialogo.ouvido.empty());
    EXPECT_FALSE(lista.BeginEdit(0, 1));
}

TEST_F(Edicao, APasteBeyondTheLimitIsCutAtTheEnd) {
    Linha(TEXTO, Valores({u""}), 4);
    Clicar(0, 1);
    Digitar("a");
    QApplication::clipboard()->setText("bcdefgh");
    Tecla(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(TextoDoEditor(), "abcdefgh");
    dialogo.antes.SetFocus();
    EXPECT_EQ(Texto(0), "abcd");
}

// The cell moves away under its editor, so the edit ends before.
TEST_F(Edicao, WhatMovesTheCellsEndsIt) {
    const auto place = [this] {
        CRect cell;
        lista.GetSubItemRect(1, 1, LVIR_LABEL, cell);
        return cell;
    };
    const std::function<void()> ways[] = {
        [this] {
            Rolar({0, -120});
        },
        [this] {
            Rolar({-120, 0});
        },
        [this] { Area().verticalScrollBar()->triggerAction(QAbstractSlider::SliderPageStepAdd); },
        [this] { Area().horizontalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum); },
        [this] { ArrastarColuna(); },
    };
    lista.AddColumn(u"Wide", 600, false);
    LinhasDeTexto(40);
    for (const auto& way : ways) {
        SCOPED_TRACE(&way - ways);
        lista.EnsureVisible(0, FALSE);
        lista.ScrollToColumn(0, false);
        Clicar(1, 1);
        Digitar("typed");
        const CRect before = place();
        way();
        EXPECT_EQ(Editor(), nullptr);
        EXPECT_EQ(Texto(1), "typed");
        EXPECT_NE(place(), before);
        lista.SetValor(1, 1, u"");
    }
}

TEST_F(Edicao, GoesToAllSelectedRows) {
    LinhasDeTexto(4);
    lista.ModifyStyle(LVS_SINGLESEL, 0);
    Clicar(2, 0);
    Clicar(0, 0, Qt::ControlModifier);
    Clicar(2, 1);
    Digitar("x");
    Clicar(1, 1);  // ends it, and begins one outside the selection
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "edited 0,1 x", "edited 2,1 x", "end", "begin"}));
    Digitar("y");
    dialogo.antes.SetFocus();
    const std::string expected[] = {"x", "y", "x", "3"};
    for (int row = 0; row < 4; ++row) EXPECT_EQ(Texto(row), expected[row]);
}

TEST_F(Edicao, AnActionCellOnlyTellsItsListeners) {
    Linha(ACAO, Valores({u"go"}));
    Clicar(0, 1);
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "action 0,1 go"}));
    EXPECT_EQ(lista.editando, 0);
    Linha(2, Valores({u"none"}));
    Clicar(1, 1);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(lista.editando, 1) << "a kind without an editor";
}

TEST_F(Edicao, AListenerMayRemoveItselfAndOthers) {
    struct Outro : ListViewEditListener {
        int calls = 0;
        void OnCelulaEditada(int32_t, int32_t) override { ++calls; }
    } before, behind;
    lista.RemoveListener(&dialogo);
    lista.AddListener(&before);
    lista.AddListener(&dialogo);
    lista.AddListener(&behind);
    dialogo.aoEditar = [&] {
        lista.RemoveListener(&dialogo);
        lista.RemoveListener(&behind);
    };
    LinhasDeTexto(1);
    for (int i = 0; i < 2; ++i) {
        Clicar(0, 1);
        dialogo.antes.SetFocus();
    }
    EXPECT_EQ(before.calls, 2);
    EXPECT_EQ(behind.calls, 0);
    EXPECT_EQ(dialogo.ouvido, (Ouvido{"begin", "edited 0,1 0", "end", "begin", "end"}));
}

// Each way for windows to go while an editor is open; run under AddressSanitizer too.
TEST_F(Edicao, OutlivesTheWindowsAroundIt) {
    for (const int32_t kind : {LISTA, TEXTO, ARQUIVO, TEXTO_PROPOSTAS, COR})
        for (int way = 0; way < 4; ++way) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << ", way " << way);
            auto other = std::make_unique<Dialogo>();
            Lista& its = *other->lista;
            its.AddColumn(u"Value", 100, false);
            its.AddItem(u"", u"", Valores({u"1", u"2"}), 9, kind, 1, true, 0);
            Ativar(*other);
            ASSERT_TRUE(its.BeginEdit(0, 0));
            ASSERT_TRUE(its.IsChild(CWnd::GetFocus()));
            if (way == 0) its.DestroyWindow();
            if (way == 1) other->lista.reset();
            if (way == 2) other->DestroyWindow();
            if (way == 3) {
                other->aoEditar = [dialog = other.get()] { dialog->DestroyWindow(); };
                other->antes.SetFocus();
                EXPECT_EQ(other->m_hWnd, nullptr);
            }
            other.reset();
        }
}

TEST_F(Edicao, RowsMayGoWhileTheirEditorIsOpen) {
    LinhasDeTexto(2);
    Clicar(1, 1);
    lista.DeleteItem(1);
    dialogo.antes.SetFocus();
    EXPECT_EQ(lista.GetItemCount(), 1);
    Clicar(0, 1);
    lista.DeleteAllItems();
    dialogo.antes.SetFocus();
    EXPECT_EQ(lista.editando, 0);
}
