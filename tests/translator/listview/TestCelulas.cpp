// Columns, rows and cells as records, and what is drawn of them.
#include <QPixmap>

#include "platform/window/CDC.h"
#include "platform/window/qt/WindowHandle.h"
#include "tests/translator/listview/Bancada.h"
#include "translator/listview/Cores.h"

using namespace bancada;
using namespace ListView;

class Celulas : public Bancada {
  protected:
    // What is drawn of a row or of a cell.
    QImage Desenho(int32_t row, int32_t col = -1) {
        CRect rect;
        if (col < 0)
            lista.GetItemRect(row, rect, LVIR_BOUNDS);
        else
            lista.GetSubItemRect(row, col, LVIR_LABEL, rect);
        const QImage whole = HandleOf(WidgetOf(&lista))->client->grab().toImage();
        return whole.copy(rect.left, rect.top, rect.Width(), rect.Height())
            .convertToFormat(QImage::Format_RGB32);
    }
    // The colour of the control at the right end of a cell, where no text stands.
    COLORREF Fundo(int32_t row, int32_t col) {
        CRect cell;
        lista.GetSubItemRect(row, col, LVIR_LABEL, cell);
        const QRgb pixel = WidgetOf(&lista)->grab().toImage().pixel(cell.right - 8, cell.top + 3);
        return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
    }
};

TEST_F(Celulas, ColumnsAreCountedForEver) {
    EXPECT_EQ(lista.AddColumn(u"Third", 50, false), 2);
    CIListViewPropriedadeItem* first = lista.AddItem(u"k", u"d", TQString(u"v"), 9, 1, 1, true, 0);
    EXPECT_EQ(first, lista.Celula(0, 0));
    EXPECT_TRUE(first->descricao.IsEmpty());
    lista.DeleteColumn(2);
    EXPECT_EQ(lista.AddColumn(u"Fourth", 50, true), 2) << "the control appends";
    EXPECT_EQ(lista.GetColumnCount(), 4);
    EXPECT_NE(lista.SetSubItem(0, 2, u"k", u"", TQString(u"x"), 9, 1, 1, true, 0), nullptr);
    EXPECT_EQ(Texto(0, 2), "x");
    EXPECT_THROW(lista.SetValor(0, 3, u"x"), CInvalidArgException) << "made with three columns";
    EXPECT_THROW(lista.GetIndice(0, -1), CInvalidArgException);
}

// Records are made as they are used, and their memory serves again.
TEST_F(Celulas, ARowBeginsBlankWhateverStoodThereBefore) {
    for (int column = 2; column < 9; ++column) lista.AddColumn(u"", 10, false);
    lista.AddItem(u"", u"", TQString(u"former"), 9, TEXTO, 1, true, 0);
    for (const int column : {1, 8}) {
        lista.SetSubItem(0, column, u"former", u"", Valores({u"a", u"b"}), 9, LISTA, 0, true, 1);
        lista.Celula(0, column)->complementos = Valores({u"b"});
    }
    lista.DeleteAllItems();
    lista.AddColumn(u"", 10, false);
    lista.AddItem(u"", u"", TQString(u"new"), 9, TEXTO, 1, true, 0);
    for (const int column : {1, 8, 9}) {
        EXPECT_EQ(Texto(0, column), "");
        EXPECT_EQ(lista.GetTipo(0, column), -1);
        EXPECT_EQ(lista.GetIndice(0, column), -1);
        const CIListViewPropriedadeItem& cell = *lista.Celula(0, column);
        EXPECT_TRUE(cell.chave.empty() && cell.valores.empty() && cell.complementos.empty() &&
                    !cell.editavel);
    }
    EXPECT_THROW(lista.Celula(0, 10), CInvalidArgException);
}

TEST_F(Celulas, RowsWithoutDataAnswerByTheTable) {
    lista.InsertItem(0, u"bare");
    for (const int32_t row : {-1, 0, 1}) {
        EXPECT_EQ(lista.SetSubItem(row, 1, u"", u"", TQString(), 1, 1, 1, true, 0), nullptr);
        EXPECT_EQ(lista.SetEditavel(row, 1, true), -1);
        EXPECT_EQ(lista.SetValor(row, 1, u"x"), 0);
        EXPECT_EQ(lista.SetIndice(row, 1, 0), -1);
        EXPECT_EQ(lista.GetTipo(row, 1), -1);
        EXPECT_EQ(lista.ClearValores(row, 1), 0);
        EXPECT_EQ(lista.GetChave(row, 1), u"");
    }
}

TEST_F(Celulas, ValuesAndIndexes) {
    CIListViewPropriedadeItem* cell = Linha(LISTA, Valores({u"a", u"b"}));
    EXPECT_EQ(lista.SetIndice(0, 1, 1), 0);
    EXPECT_EQ(Texto(0), "b");
    EXPECT_EQ(cell->indiceAnterior, 0);
    EXPECT_EQ(lista.GetValor(0, 1, 2), u"");
    EXPECT_EQ(lista.SetValor(0, 1, u"c"), 1);
    EXPECT_EQ(cell->valores.size(), 1u);
    EXPECT_EQ(cell->indiceAnterior, 1);
    EXPECT_EQ(Texto(0), "c");
    EXPECT_FALSE(Linha(LISTA, {})->editavel) << "nothing to choose from";
}

TEST_F(Celulas, TheFolderOfAFileCell) {
    lista.pastaBase = u"C:\\base\\";
    Linha(ARQUIVO, Valores({u"sub\\deep\\x.dwg"}));
    EXPECT_EQ(lista.pastaAtual, u"C:\\base\\sub\\deep");
    Linha(ARQUIVO_COMPLETO, Valores({u"other\\x.dwg"}));
    EXPECT_EQ(lista.pastaAtual, u"C:\\base\\sub\\deep");
    Linha(ARQUIVO, Valores({u""}));
    EXPECT_EQ(lista.pastaAtual, u"C:\\base\\");
}

TEST_F(Celulas, ColourNumbers) {
    const std::pair<const char16_t*, COLORREF> cases[] = {
        {u"1", RGB(255, 0, 0)},
        {u"-7", RGB(255, 255, 255)},
        {u"", RGB(255, 255, 255)},
        {u"255", RGB(255, 255, 255)},
        {u"256", RGB(255, 255, 255)},
        {u"257", RGB(0, 1, 1)},
        {u"1193046", RGB(0x12, 0x34, 0x56)},
        {u"5x", RGB(0, 0, 255)},
    };
    for (const auto& [text, color] : cases) EXPECT_EQ(ToCor(text), color) << Estreito(text);
    EXPECT_EQ(Complemento(RGB(255, 1, 0)), RGB(0, 254, 255));
}

TEST_F(Celulas, BackgroundsByState) {
    Linha(COR, Valores({u"1"}));
    Linha(TEXTO, Valores({u"t"}))->destaque = true;
    Linha(TEXTO, Valores({u"t"}))->desabilitado = true;
    Linha(TEXTO, Valores({u"t"}));
    EXPECT_EQ(Fundo(0, 1), RGB(255, 0, 0));
    EXPECT_EQ(Fundo(1, 1), RGB(255, 230, 230));
    EXPECT_EQ(Fundo(2, 1), GetSysColor(COLOR_3DLIGHT));
    EXPECT_EQ(Fundo(3, 1), GetSysColor(COLOR_WINDOW));
    lista.bloqueado = true;
    EXPECT_NE(Fundo(0, 1), RGB(255, 0, 0));
    EXPECT_EQ(Texto(3), "t");
}

// A cell that can be edited reads like a link.
TEST_F(Celulas, TheMouseUnderlinesACellThatCanBeEdited) {
    Linha(TEXTO, Valores({u"link"}));
    Linha(TEXTO, Valores({u"link"}))->negrito = true;
    Linha(TEXTO, Valores({u"text"}))->editavel = false;
    QWidget* client = HandleOf(WidgetOf(&lista))->client;
    const auto mouseAt = [&](int row) {
        CRect cell;
        lista.GetSubItemRect(row, 1, LVIR_LABEL, cell);
        QTest::mouseMove(client, QPoint(cell.CenterPoint().x, cell.CenterPoint().y));
        QCoreApplication::processEvents();
    };
    std::vector<QImage> atRest;
    mouseAt(2);
    for (int row = 0; row < 3; ++row) atRest.push_back(Desenho(row, 1));
    for (int row = 0; row < 3; ++row) {
        mouseAt(row);
        const bool link = row < 2;
        EXPECT_EQ(client->cursor().shape(), link ? Qt::PointingHandCursor : Qt::ArrowCursor);
        EXPECT_EQ(Desenho(row, 1) != atRest[row], link) << row;
    }
    lista.bloqueado = true;
    mouseAt(0);
    EXPECT_EQ(client->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Celulas, SeparatorsAndTitles) {
    for (int row = 0; row < 3; ++row) Linha(TEXTO, Valores({u"value"}));
    lista.linhasSeparadoras = {1};
    lista.linhasTitulo = {2};
    const QRgb window = QColor(Qt::white).rgb(), line = qRgb(0x96, 0x96, 0x96);
    const QImage separator = Desenho(1), title = Desenho(2);
    const int middle = separator.height() / 2, width = separator.width();
    EXPECT_EQ(separator.pixel(9, middle), window);
    EXPECT_EQ(separator.pixel(10, middle), line);
    EXPECT_EQ(separator.pixel(width - 11, middle), line);
    EXPECT_EQ(separator.pixel(width / 2, middle - 1), window);
    const auto empty = [&](int left, int right) {
        return title.copy(left, 0, right - left, title.height()) ==
               title.copy(0, 0, right - left, title.height());
    };
    const int text = WidgetOf(&lista)->fontMetrics().horizontalAdvance("name");
    EXPECT_TRUE(empty(0, width / 2 - text)) << "neither of the cells' texts";
    EXPECT_FALSE(empty(width / 2 - text, width / 2 + text)) << "the title in the middle";
    EXPECT_TRUE(empty(width / 2 + text, width));
}

TEST_F(Celulas, TextStaysReadableOnTheFixedBackground) {
    const COLORREF pink = RGB(255, 230, 230);
    EXPECT_EQ(CorLegivel(RGB(0, 0, 200), pink), RGB(0, 0, 200));
    EXPECT_EQ(CorLegivel(RGB(200, 220, 255), pink), RGB(0, 0, 0));
    EXPECT_EQ(CorLegivel(RGB(0, 0, 60), RGB(30, 30, 30)), RGB(255, 255, 255));
}
