// The rows of a list against a plain model of them, through random changes.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/window/ListRows.h"

using window::ListRows;

namespace {

struct PlainRow {
    std::vector<std::u16string> texts;
    intptr_t data = 0;
    bool selected = false, focused = false, marked = false;
};

// Does to a vector of rows what is done to the list, the slow and obvious way.
class Twin {
  public:
    explicit Twin(unsigned seed) : random(seed) {
        for (; columns < 3; ++columns) rows.InsertColumn(columns);
    }

    void Change() {
        const int count = rows.Count(), row = count ? Below(count) : -1;
        switch (Below(row < 0 ? 1 : 10)) {
            case 0:
            case 1:
            case 2:
                Insert(Below(count + 1));
                break;
            case 3:
                rows.Erase(row);
                plain.erase(plain.begin() + row);
                break;
            case 4:
                SetText(row, Below(columns), Word());
                break;
            case 5:
                rows.SetData(row, plain[row].data = Below(8));
                break;
            case 6:
                Sort();
                break;
            case 7:
                State(row, Below(4), Below(4));
                break;
            case 8:
                Mark(row);
                break;
            case 9:
                if (Below(4) == 0) Columns();
                if (Below(40) == 0) Clear();
                break;
        }
    }

    void Compare() {
        ASSERT_EQ(rows.Count(), int(plain.size()));
        int selected = 0, focus = -1, mark = -1;
        for (int row = 0; row < rows.Count(); ++row) {
            const PlainRow& expected = plain[row];
            ASSERT_EQ(rows.DataOf(row), expected.data);
            for (int column = 0; column < columns; ++column)
                ASSERT_EQ(rows.Text(row, column), expected.texts[column]);
            ASSERT_EQ(rows.State(row), unsigned(expected.focused) | expected.selected * 2u);
            selected += expected.selected;
            if (expected.focused) focus = row;
            if (expected.marked) mark = row;
        }
        ASSERT_EQ(rows.SelectedCount(), selected);
        ASSERT_EQ(rows.Focus(), focus);
        ASSERT_EQ(rows.Mark(), mark);
        for (intptr_t data = 0; data < 9; ++data) ASSERT_EQ(rows.Find(data), PlainFind(data));
    }

  private:
    int Below(int end) { return int(random() % unsigned(end)); }
    std::u16string Word() { return std::u16string(size_t(Below(12)), char16_t(u'a' + Below(26))); }
    int PlainFind(intptr_t data) const {
        const auto found = std::find_if(plain.begin(), plain.end(),
                                        [&](const PlainRow& row) { return row.data == data; });
        return found == plain.end() ? -1 : int(found - plain.begin());
    }

    void Insert(int row) {
        PlainRow made{std::vector<std::u16string>(size_t(columns)), Below(8)};
        made.texts[0] = Word();
        rows.Insert(row, made.texts[0], made.data);
        plain.insert(plain.begin() + row, made);
    }
    void SetText(int row, int column, const std::u16string& text) {
        EXPECT_TRUE(rows.SetText(row, column, text));
        EXPECT_FALSE(rows.SetText(row, columns, text));
        plain[row].texts[column] = text;
    }
    void Sort() {
        const auto byData = [](intptr_t a, intptr_t b) { return int(a - b); };
        rows.Sort(byData);
        std::stable_sort(plain.begin(), plain.end(),
                         [](const PlainRow& a, const PlainRow& b) { return a.data < b.data; });
    }
    void State(int row, unsigned state, unsigned mask) {
        rows.SetState(row, state, mask);
        if (mask & 1) {
            for (PlainRow& each : plain)
                if (state & 1 || &each == &plain[row]) each.focused = false;
            plain[row].focused = state & 1;
        }
        if (mask & 2) plain[row].selected = state & 2;
        if ((state & mask & 3) == 3) MarkPlain(row);
    }
    void Mark(int row) {
        rows.SetMark(row);
        MarkPlain(row);
    }
    void MarkPlain(int row) {
        for (PlainRow& each : plain) each.marked = &each == &plain[row];
    }
    void Clear() {
        rows.Clear();
        plain.clear();
    }
    // Mostly the last column, which is put off; sometimes two of them before a row is touched.
    void Columns() {
        for (int times = 1 + Below(2); times > 0; --times) {
            const int erased = std::min(Below(2 * columns), columns - 1);
            const int inserted = Below(3) ? columns - 1 : 0;
            rows.EraseColumn(erased);
            rows.InsertColumn(inserted);
            for (PlainRow& each : plain) {
                each.texts.erase(each.texts.begin() + erased);
                each.texts.insert(each.texts.begin() + inserted, u"");
            }
        }
    }

    std::mt19937 random;
    ListRows rows;
    std::vector<PlainRow> plain;
    int columns = 0;
};

TEST(ListRows, AgreeWithAPlainModelThroughRandomChanges) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        Twin twin(seed);
        for (int change = 0; change < 200; ++change) {
            twin.Change();
            ASSERT_NO_FATAL_FAILURE(twin.Compare()) << "seed " << seed << ", change " << change;
        }
    }
}

TEST(ListRows, CanBeReadAndFoundWhileTheyAreSorted) {
    ListRows rows;
    for (int i = 0; i < 1000; ++i)
        rows.Insert(i, std::u16string(1, char16_t(1 + i * 7919 % 1000)), 1 + i);
    int moved = 0;
    rows.Sort([&](intptr_t a, intptr_t b) {
        moved += rows.Find(a) != a - 1 || rows.Find(b) != b - 1;
        return rows.Text(rows.Find(a), 0).compare(rows.Text(rows.Find(b), 0));
    });
    EXPECT_EQ(moved, 0);
    for (int i = 1; i < rows.Count(); ++i) ASSERT_LT(rows.Text(i - 1, 0), rows.Text(i, 0));
}

TEST(ListRows, StayAsTheyAreWhenAComparisonThrows) {
    ListRows rows;
    for (int i = 0; i < 50; ++i) rows.Insert(i, u"", 50 - i);
    int compared = 0;
    EXPECT_THROW(rows.Sort([&](intptr_t a, intptr_t b) {
        if (++compared == 40) throw std::runtime_error("no");
        return int(a - b);
    }),
                 std::runtime_error);
    for (int i = 0; i < 50; ++i) ASSERT_EQ(rows.Find(50 - i), i);
}

TEST(ListRows, KeepASingleSelectionSingle) {
    ListRows rows;
    for (int i = 0; i < 5; ++i) rows.Insert(i, u"", 0);
    rows.SelectOnly(1, 3);
    rows.SetSingleSelection(true);
    EXPECT_EQ(rows.SelectedCount(), 1);
    EXPECT_EQ(rows.Next(-1, ListRows::kSelected), 1);
    rows.SetState(4, ListRows::kSelected, ListRows::kSelected);
    EXPECT_EQ(rows.Next(-1, ListRows::kSelected), 4);
    EXPECT_THROW(rows.SetMark(5), std::out_of_range);
    EXPECT_THROW(rows.Erase(-1), std::out_of_range);
}

}  // namespace
