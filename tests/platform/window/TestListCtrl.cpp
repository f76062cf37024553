// The list control with real mouse and keys: selection, notifications, drawing, scrolling.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QAccessibleInterface>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include "platform/window/CListCtrl.h"
#include "platform/window/qt/ListWidget.h"
#include "tests/platform/window/Bench.h"

using testing::ElementsAre;

namespace {

constexpr UINT kId = 77;

// Notes what it is told; onDraw is asked at every stage of drawing.
class NotingList : public CListCtrl {
    DECLARE_DYNAMIC(NotingList)

  public:
    std::vector<std::string> log;
    std::function<LRESULT(NMLVCUSTOMDRAW&)> onDraw;

  protected:
    void OnCustomDraw(NMHDR* header, LRESULT* result) {
        *result = onDraw ? onDraw(*reinterpret_cast<LPNMLVCUSTOMDRAW>(header)) : CDRF_DODEFAULT;
    }
    void OnHot(NMHDR* header, LRESULT*) { Note("hot", *reinterpret_cast<LPNMLISTVIEW>(header)); }
    void OnColumn(NMHDR* header, LRESULT*) {
        Note("column", *reinterpret_cast<LPNMLISTVIEW>(header));
    }
    void OnVScroll(UINT code, UINT position, CScrollBar* bar) {
        log.push_back("vscroll at " + std::to_string(GetTopIndex()));
        CListCtrl::OnVScroll(code, position, bar);
    }
    BOOL OnMouseWheel(UINT flags, short delta, CPoint point) {
        log.push_back("wheel at " + std::to_string(GetTopIndex()));
        return CListCtrl::OnMouseWheel(flags, delta, point);
    }
    void Note(const char* what, const NMLISTVIEW& told) {
        log.push_back(std::string(what) + " " + std::to_string(told.iItem) + "," +
                      std::to_string(told.iSubItem));
    }
    DECLARE_MESSAGE_MAP()
};
IMPLEMENT_DYNAMIC(NotingList, CListCtrl)
BEGIN_MESSAGE_MAP(NotingList, CListCtrl)
ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, &NotingList::OnCustomDraw)
ON_NOTIFY_REFLECT(LVN_HOTTRACK, &NotingList::OnHot)
ON_NOTIFY_REFLECT(LVN_COLUMNCLICK, &NotingList::OnColumn)
ON_WM_VSCROLL()
ON_WM_MOUSEWHEEL()
END_MESSAGE_MAP()

class Parent : public CWnd {
  public:
    std::vector<UINT> codes;

  protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        if (CWnd::OnNotify(wParam, lParam, result)) return TRUE;
        codes.push_back(reinterpret_cast<NMHDR*>(lParam)->code);
        return FALSE;
    }
};

class ListControl : public testing::Test {
  protected:
    void Make(DWORD style, int rows = 40) {
        parent.Create(u"", u"", WS_POPUP, CRect(0, 0, 320, 200), nullptr, 0);
        list.Create(style | WS_VISIBLE | LVS_REPORT, CRect(0, 0, 320, 200), &parent, kId);
        list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_INFOTIP | LVS_EX_DOUBLEBUFFER);
        CImageList images;
        images.Create(1, 16, ILC_COLOR, 0, 1);
        list.SetImageList(&images, LVSIL_SMALL);
        list.InsertColumn(0, u"Zero", 8, 100);
        list.InsertColumn(1, u"One", 8, 150);
        for (int row = 0; row < rows; ++row) {
            CString text;
            text.Format(u"Row %03d", row);
            list.InsertItem(row, text.GetString());
            list.SetItemText(row, 1, u"A text that is longer than its column");
            list.SetItemData(row, 1000 + row);
        }
        parent.ShowWindow(SW_SHOW);
        Activate(parent);
        list.SetFocus();
        ::Settle();
    }
    ListWidget& Widget() { return static_cast<ListWidget&>(*WidgetOf(&list)); }
    CPoint Cell(int row, int column = 0) {
        CRect rect;
        EXPECT_TRUE(list.GetSubItemRect(row, column, LVIR_LABEL, rect));
        return rect.CenterPoint();
    }
    void Click(CPoint at, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(Widget().viewport(), Qt::LeftButton, modifiers, QPoint(at.x, at.y));
    }
    std::vector<int> Selected() {
        std::vector<int> rows;
        for (int row = -1; (row = list.GetNextItem(row, LVNI_SELECTED)) >= 0;) rows.push_back(row);
        return rows;
    }
    QImage Drawn() {
        return Widget().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }

    Parent parent;
    NotingList list;
};

TEST_F(ListControl, SelectsByMouseAndKeepsTheMark) {
    Make(LVS_SINGLESEL);
    EXPECT_EQ(list.GetSelectionMark(), -1);
    Click(Cell(2, 1));
    Click(Cell(4), Qt::ControlModifier);
    EXPECT_THAT(Selected(), ElementsAre(4));
    EXPECT_EQ(list.GetSelectionMark(), 4);
    list.SortItems([](LPARAM a, LPARAM b, LPARAM) { return int(b - a); }, 0);
    EXPECT_EQ(list.GetSelectionMark(), 35);
    EXPECT_THAT(Selected(), ElementsAre(35));
    list.DeleteItem(35);
    EXPECT_EQ(list.GetSelectionMark(), -1);
    Click(Cell(1));
    Click(CPoint(300, 100));  // beside the columns
    EXPECT_THAT(Selected(), ElementsAre());
    EXPECT_EQ(list.GetSelectionMark(), -1);
}

TEST_F(ListControl, SelectsManyWithControlAndShift) {
    Make(0);
    Click(Cell(1));
    Click(Cell(4), Qt::ShiftModifier);
    EXPECT_THAT(Selected(), ElementsAre(1, 2, 3, 4));
    Click(Cell(2), Qt::ControlModifier);
    EXPECT_THAT(Selected(), ElementsAre(1, 3, 4));
    Press(list, Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_THAT(Selected(), ElementsAre(1, 2));
    list.ModifyStyle(0, LVS_SINGLESEL);
    Press(list, Qt::Key_Down);
    EXPECT_THAT(Selected(), ElementsAre(2));
}

TEST_F(ListControl, MovesByKeysAndKeepsTheRowInView) {
    Make(LVS_SINGLESEL);
    const int page = list.GetCountPerPage();
    const struct {
        Qt::Key key;
        int row;
    } steps[] = {{Qt::Key_Down, 1},           {Qt::Key_End, 39}, {Qt::Key_Down, 39},
                 {Qt::Key_PageUp, 40 - page}, {Qt::Key_Home, 0}, {Qt::Key_Up, 0},
                 {Qt::Key_PageDown, page - 1}};
    for (const auto& step : steps) {
        Press(list, step.key);
        EXPECT_THAT(Selected(), ElementsAre(step.row));
        CRect rect, client;
        list.GetItemRect(step.row, rect, LVIR_BOUNDS);
        list.GetClientRect(client);
        EXPECT_GE(rect.top, Widget().HeaderHeight());
        EXPECT_LE(rect.bottom, client.bottom);
    }
    Type(list, "row 023");
    EXPECT_THAT(Selected(), ElementsAre(23));
}

TEST_F(ListControl, RowsAreAsHighAsTheImagesAndStandBelowTheHeader) {
    Make(LVS_SINGLESEL);
    CRect first, second, cell;
    list.GetItemRect(0, first, LVIR_BOUNDS);
    list.GetItemRect(1, second, LVIR_BOUNDS);
    list.GetSubItemRect(1, 1, LVIR_LABEL, cell);
    EXPECT_EQ(second.top - first.top, 16);
    EXPECT_EQ(first.top, Widget().HeaderHeight());
    EXPECT_EQ(cell, CRect(100, second.top, 250, second.bottom));
    LVHITTESTINFO hit{Cell(3, 1)};
    EXPECT_EQ(list.SubItemHitTest(&hit), 3);
    EXPECT_EQ(hit.iSubItem, 1);
    EXPECT_EQ(list.HitTest(CPoint(10, 2)), -1) << "the header is no row";
    EXPECT_EQ(list.HitTest(CPoint(260, first.top + 2)), -1) << "beside the columns";
}

TEST_F(ListControl, TellsOfColumnsAndOfTheMouse) {
    Make(LVS_SINGLESEL);
    QTest::mouseClick(Widget().Header().viewport(), Qt::LeftButton, {}, QPoint(120, 5));
    Press(list, Qt::Key_1, Qt::ControlModifier);
    const CPoint at = Cell(2, 1);
    list.log.erase(std::remove(list.log.begin(), list.log.end(), "hot -1,0"), list.log.end());
    QTest::mouseMove(Widget().viewport(), QPoint(at.x, at.y));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(Widget().viewport(), &leave);
    EXPECT_THAT(list.log, ElementsAre("column -1,1", "column -1,0", "hot 2,1", "hot -1,0"));
    EXPECT_THAT(parent.codes, testing::Not(testing::Contains(LVN_COLUMNCLICK)))
        << "what the list handles itself its parent does not hear";
}

TEST_F(ListControl, DragsColumnsToAnotherWidth) {
    Make(LVS_SINGLESEL);
    QWidget* header = Widget().Header().viewport();
    QTest::mousePress(header, Qt::LeftButton, {}, QPoint(99, 5));
    QMouseEvent move(QEvent::MouseMove, QPointF(139, 5), header->mapToGlobal(QPointF(139, 5)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(header, &move);
    QTest::mouseRelease(header, Qt::LeftButton, {}, QPoint(139, 5));
    EXPECT_EQ(list.GetColumnWidth(0), 140);
    CRect second;
    EXPECT_TRUE(list.GetHeaderCtrl()->GetItemRect(1, second));
    EXPECT_EQ(second.left, 140);
}

TEST_F(ListControl, ScrollMessagesComeBeforeTheViewMoves) {
    Make(LVS_SINGLESEL);
    QScrollBar* bar = Widget().verticalScrollBar();
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(list.GetTopIndex(), list.GetCountPerPage());
    const QPointF at(50, 50);
    QWheelEvent wheel(at, Widget().viewport()->mapToGlobal(at), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Widget().viewport(), &wheel);
    const int page = list.GetCountPerPage();
    EXPECT_THAT(list.log, ElementsAre("vscroll at 0", "wheel at " + std::to_string(page)));
    EXPECT_EQ(list.GetTopIndex(), page - 3);
    list.SendMessage(WM_VSCROLL, SB_BOTTOM);
    EXPECT_EQ(list.GetTopIndex(), 40 - page);
    list.EnsureVisible(0, FALSE);
    EXPECT_EQ(list.GetTopIndex(), 0);
    list.SetColumnWidth(0, 500);
    list.Scroll(CSize(60, 32));
    EXPECT_EQ(list.GetScrollPos(SB_HORZ), 60);
    EXPECT_EQ(list.GetScrollPos(SB_VERT), 2);
    CRect cell;
    list.GetSubItemRect(2, 1, LVIR_LABEL, cell);
    EXPECT_EQ(cell.left, 440);
}

TEST_F(ListControl, DrawsAsItsHandlerAnswers) {
    Make(LVS_SINGLESEL, 3);
    const COLORREF red = RGB(255, 0, 0), blue = RGB(0, 0, 255);
    std::vector<std::string> stages;
    list.onDraw = [&](NMLVCUSTOMDRAW& draw) -> LRESULT {
        const auto row = draw.nmcd.dwItemSpec;
        switch (draw.nmcd.dwDrawStage) {
            case CDDS_PREPAINT:
                return CDRF_NOTIFYITEMDRAW;
            case CDDS_ITEMPREPAINT:
                EXPECT_EQ(draw.nmcd.lItemlParam, LPARAM(1000 + row));
                draw.clrTextBk = blue;
                if (row == 2) {
                    CDC::FromHandle(draw.nmcd.hdc)->FillSolidRect(draw.nmcd.rc, red);
                    return CDRF_SKIPDEFAULT;
                }
                return row == 0 ? CDRF_NOTIFYSUBITEMDRAW : CDRF_DODEFAULT;
            case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
                if (draw.iSubItem == 1) draw.clrTextBk = red;
                return CDRF_NEWFONT;
            default:
                ADD_FAILURE() << draw.nmcd.dwDrawStage;
                return 0;
        }
    };
    const QImage image = Drawn();
    const auto colorAt = [&](int row, int column) {
        CRect rect;
        list.GetSubItemRect(row, column, LVIR_LABEL, rect);
        const QColor color = image.pixelColor(rect.right - 2, rect.top + 1);
        return RGB(color.red(), color.green(), color.blue());
    };
    EXPECT_EQ(colorAt(0, 0), blue) << "the row's colour is that of its cells";
    EXPECT_EQ(colorAt(0, 1), red);
    EXPECT_EQ(colorAt(1, 1), blue);
    EXPECT_EQ(colorAt(2, 0), red) << "drawn by the handler";
}

TEST_F(ListControl, ShowsTheSelectionAgainstTheHandlersColours) {
    Make(LVS_SINGLESEL | LVS_SHOWSELALWAYS, 3);
    list.onDraw = [](NMLVCUSTOMDRAW& draw) -> LRESULT {
        draw.clrTextBk = RGB(255, 0, 0);
        return CDRF_NOTIFYITEMDRAW;
    };
    Press(list, Qt::Key_End);
    CRect rect;
    list.GetSubItemRect(2, 1, LVIR_LABEL, rect);
    const QPoint corner(rect.right - 3, rect.top + 2);
    EXPECT_EQ(Drawn().pixelColor(corner), Widget().palette().color(QPalette::Highlight));
    parent.SetFocus();
    EXPECT_EQ(Drawn().pixelColor(corner), Widget().palette().color(QPalette::Button));
    list.ModifyStyle(LVS_SHOWSELALWAYS, 0);
    EXPECT_EQ(Drawn().pixelColor(corner), QColor(255, 0, 0));
}

TEST_F(ListControl, TipsShowCutTextsAsTheyAre) {
    Make(LVS_SINGLESEL, 2);
    list.SetItemText(1, 1, u"<b>a text</b> that is far longer than its column");
    const auto tipAt = [&](CPoint at) {
        const QPoint point(at.x, at.y);
        QHelpEvent help(QEvent::ToolTip, point, Widget().viewport()->mapToGlobal(point));
        QCoreApplication::sendEvent(Widget().viewport(), &help);
        return QToolTip::text();
    };
    EXPECT_TRUE(tipAt(Cell(1, 0)).isEmpty());
    EXPECT_TRUE(tipAt(Cell(1, 1)).contains("&lt;b&gt;a text&lt;/b&gt;"));
}

TEST_F(ListControl, ReadersFindATableOfCells) {
    Make(LVS_SINGLESEL, 5);
    QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(&Widget());
    ASSERT_TRUE(reader && reader->tableInterface());
    EXPECT_EQ(reader->role(), QAccessible::Table);
    EXPECT_EQ(reader->tableInterface()->rowCount(), 5);
    EXPECT_EQ(reader->tableInterface()->columnDescription(1), "One");
    QAccessibleInterface* cell = reader->tableInterface()->cellAt(3, 0);
    EXPECT_EQ(cell->text(QAccessible::Name), "Row 003");
    EXPECT_FALSE(cell->state().selected);
    Click(Cell(3));
    EXPECT_TRUE(cell->state().selected);
    EXPECT_EQ(reader->indexOfChild(cell), 6);
    list.DeleteAllItems();
    EXPECT_TRUE(cell->state().invalid);
}

TEST_F(ListControl, RefusesWhatIsNotThere) {
    EXPECT_EQ(list.InsertItem(0, u"no window yet"), -1);
    EXPECT_EQ(list.GetItemText(0, 0), u"");
    Make(LVS_SINGLESEL, 2);
    EXPECT_FALSE(list.SetItemText(2, 0, u"x"));
    EXPECT_FALSE(list.SetItemText(0, 2, u"x"));
    EXPECT_FALSE(list.DeleteItem(-1));
    EXPECT_FALSE(list.DeleteColumn(2));
    EXPECT_EQ(list.InsertColumn(9, u"appended", 8, 50), 2);
    LVFINDINFO find;
    find.flags = LVFI_PARAM;
    find.lParam = 1001;
    EXPECT_EQ(list.FindItem(&find), 1);
    EXPECT_EQ(list.FindItem(&find, 1), -1);
    find.flags = LVFI_STRING;
    find.psz = u"ROW 000";
    EXPECT_EQ(list.FindItem(&find), 0);
    Press(list, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list.GetSelectedCount(), 0u);
}

TEST_F(ListControl, MayBeDestroyedByItsOwnNotification) {
    Make(LVS_SINGLESEL);
    class Ending : public NotingList {
      public:
        using CListCtrl::Create;
        BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override {
            if (reinterpret_cast<NMHDR*>(lParam)->code == LVN_COLUMNCLICK) DestroyWindow();
            return NotingList::OnChildNotify(message, wParam, lParam, result);
        }
    } ending;
    ending.Create(WS_VISIBLE | LVS_REPORT, CRect(0, 0, 200, 150), &parent, kId + 1);
    ending.InsertColumn(0, u"Zero", 8, 100);
    ending.InsertItem(0, u"row");
    ::Settle();
    QWidget* header = static_cast<ListWidget&>(*WidgetOf(&ending)).Header().viewport();
    QTest::mouseClick(header, Qt::LeftButton, {}, QPoint(50, 5));
    EXPECT_EQ(ending.GetSafeHwnd(), nullptr);
    ::Settle();
}

TEST_F(ListControl, IsSilentWhenIdle) {
    Make(LVS_SINGLESEL);
    int events = 0;
    class Counter : public QObject {
      public:
        explicit Counter(int& events) : events(events) {}
        bool eventFilter(QObject*, QEvent*) override { return ++events, false; }
        int& events;
    } counter(events);
    Widget().viewport()->installEventFilter(&counter);
    Widget().installEventFilter(&counter);
    for (int round = 0; round < 50; ++round) QCoreApplication::processEvents();
    EXPECT_EQ(events, 0);
}

}  // namespace
