// Measures the list control against QStandardItemModel with QTreeView, both in this run: filling
// 100,000 rows of three cells, sorting by a column as the dialogs do (rows found by their item
// data, texts compared without regard to case), scrolling to the end. Times of the processor,
// medians of five runs in turns. The exit status is 1 when a bound is missed.
#include <malloc.h>

#include <QApplication>
#include <QStandardItemModel>
#include <QTreeView>
#include <cstdio>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/ProcessorTime.h"
#include "platform/window/CListCtrl.h"

namespace {

constexpr int kRows = 100000, kColumns = 3, kRuns = 5, kSorted = 1;

double HeapBytes() {
    const struct mallinfo2 info = ::mallinfo2();
    return double(info.uordblks + info.hblkhd);
}

struct Times {
    double fill = 0, sort = 0, scroll = 0, bytes = 0;
};

// Words like those of a drawing, 4 to 36 letters with blanks between them.
std::vector<std::u16string> MakeTexts() {
    std::mt19937 random(1);
    std::vector<std::u16string> texts(kRows * kColumns);
    for (std::u16string& text : texts) {
        const int length = 4 + int(random() % 33);
        for (int i = 0; i < length; ++i)
            text += i % 7 == 6 ? u' ' : char16_t((i % 7 ? u'a' : u'A') + random() % 26);
    }
    return texts;
}

CListCtrl* g_sorted;

CString TextOf(LPARAM data) {
    LVFINDINFO find;
    find.flags = LVFI_PARAM;
    find.lParam = data;
    return g_sorted->GetItemText(g_sorted->FindItem(&find), kSorted);
}

int Compare(LPARAM a, LPARAM b, LPARAM) { return TextOf(a).CompareNoCase(TextOf(b)); }

void Check(bool sorted) {
    if (!sorted) throw std::runtime_error("a list is not sorted");
}

Times RunOurs(const std::vector<std::u16string>& texts) {
    CWnd parent;
    parent.Create(u"", u"", WS_POPUP, CRect(0, 0, 640, 480), nullptr, 0);
    CListCtrl list;
    list.Create(WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL, CRect(0, 0, 640, 480), &parent, 1);
    for (int column = 0; column < kColumns; ++column) list.InsertColumn(column, u"Title", 0, 200);
    parent.ShowWindow(SW_SHOW);
    QApplication::processEvents();
    std::vector<char> data(kRows);
    g_sorted = &list;

    Times times;
    const double heap = HeapBytes(), begin = ProcessorTime();
    for (int row = 0; row < kRows; ++row) {
        list.InsertItem(row, texts[size_t(row) * kColumns].c_str());
        list.SetItemData(row, reinterpret_cast<LPARAM>(&data[size_t(row)]));
        for (int column = 1; column < kColumns; ++column)
            list.SetItemText(row, column, texts[size_t(row) * kColumns + column].c_str());
    }
    QApplication::processEvents();
    const double filled = ProcessorTime();
    times.bytes = HeapBytes() - heap;
    list.SortItems(Compare, 0);
    QApplication::processEvents();
    const double sorted = ProcessorTime();
    list.EnsureVisible(kRows - 1, FALSE);
    QApplication::processEvents();
    times.scroll = ProcessorTime() - sorted;
    times.sort = sorted - filled;
    times.fill = filled - begin;
    for (int row = 1; row < kRows; ++row)
        Check(list.GetItemText(row - 1, kSorted).CompareNoCase(list.GetItemText(row, kSorted)) <=
              0);
    Check(list.GetTopIndex() + list.GetCountPerPage() == kRows);
    parent.DestroyWindow();
    return times;
}

Times RunQt(const std::vector<std::u16string>& texts) {
    // Never destroyed: each item of a sorted model searches its own place first, which takes
    // minutes.
    auto& model = *new QStandardItemModel(0, kColumns);
    QTreeView view;
    view.setRootIsDecorated(false);
    view.setUniformRowHeights(true);  // the fast way
    view.setModel(&model);
    view.resize(640, 480);
    view.show();
    QApplication::processEvents();

    Times times;
    const double heap = HeapBytes(), begin = ProcessorTime();
    for (int row = 0; row < kRows; ++row) {
        QList<QStandardItem*> items;
        for (int column = 0; column < kColumns; ++column)
            items.append(new QStandardItem(
                QString::fromStdU16String(texts[size_t(row) * kColumns + column])));
        model.appendRow(items);
    }
    QApplication::processEvents();
    const double filled = ProcessorTime();
    times.bytes = HeapBytes() - heap;
    view.sortByColumn(kSorted, Qt::AscendingOrder);
    QApplication::processEvents();
    const double sorted = ProcessorTime();
    view.scrollToBottom();
    QApplication::processEvents();
    times.scroll = ProcessorTime() - sorted;
    times.sort = sorted - filled;
    times.fill = filled - begin;
    for (int row = 1; row < kRows; ++row)
        Check(model.item(row - 1, kSorted)->text() <= model.item(row, kSorted)->text());
    return times;
}

double Median(const std::vector<Times>& runs, double Times::*part) {
    std::vector<double> values;
    for (const Times& run : runs) values.push_back(run.*part);
    return MedianOf(values);
}

bool Print(const char* what, double ours, double theirs) {
    const bool met = ours < theirs;
    std::printf("list, %-56s %8.2f  <    1.00  %s\n", what, ours / theirs, met ? "ok" : "MISSED");
    return met;
}

int Measure() {
    const auto texts = MakeTexts();
    std::vector<Times> ours, theirs;
    for (int run = 0; run < kRuns; ++run) {
        ours.push_back(RunOurs(texts));
        theirs.push_back(RunQt(texts));
        QApplication::processEvents(QEventLoop::AllEvents);
    }
    const double fill = Median(ours, &Times::fill), qtFill = Median(theirs, &Times::fill);
    const double sort = Median(ours, &Times::sort), qtSort = Median(theirs, &Times::sort);
    const double scroll = Median(ours, &Times::scroll), qtScroll = Median(theirs, &Times::scroll);
    std::printf(
        "%d rows of %d cells, list: fill %.1f ms, sort %.1f ms, scroll %.2f ms, %.0f bytes "
        "for a row\n",
        kRows, kColumns, fill, sort, scroll, Median(ours, &Times::bytes) / kRows);
    std::printf(
        "%d rows of %d cells, Qt:   fill %.1f ms, sort %.1f ms, scroll %.2f ms, %.0f bytes "
        "for a row\n",
        kRows, kColumns, qtFill, qtSort, qtScroll, Median(theirs, &Times::bytes) / kRows);
    bool met = Print("filling 100,000 rows over Qt's item model", fill, qtFill);
    met &= Print("sorting 100,000 rows by a column over Qt's item model", sort, qtSort);
    met &= Print("scrolling to the end over Qt's tree view", scroll, qtScroll);
    return met ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    try {
        return Measure();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "list_view: %s\n", error.what());
        return 1;
    }
}
