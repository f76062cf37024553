// The rows of a list: texts by column, item data, and which rows are selected, focused and marked.
// Plain data that knows no window.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory_resource>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace window {

// Rows and columns count from 0; -1 is none. A row number out of range raises std::out_of_range,
// except where it is said otherwise. Selection, focus and mark belong to a row and go with it.
class ListRows {
  public:
    using Data = intptr_t;
    using Compare = std::function<int(Data a, Data b)>;  // below, at or above 0

    static constexpr unsigned kFocused = 1, kSelected = 2;

    ListRows();
    ~ListRows();

    int Count() const { return static_cast<int>(rows.size()); }
    int Insert(int row, std::u16string_view text,
               Data data);  // anywhere outside: the end; its number
    void Erase(int row);
    void Clear();  // the rows to come take over the memory of these
    void Reserve(int count);

    int Columns() const { return columns; }
    void InsertColumn(int column);  // 0 to Columns()
    void EraseColumn(int column);

    // Column 0 is there in a list without columns too. Another column that is not there holds an
    // empty text and takes none: the answer is false. What Text gives is good until
    // the row changes.
    std::u16string_view Text(int row, int column) const;
    bool SetText(int row, int column, std::u16string_view text);

    Data DataOf(int row) const;
    void SetData(int row, Data data);
    // The first row behind `after` with these data; -1 for none. A look-up in a hash table.
    int Find(Data data, int after = -1) const;

    // At most one row has the focus, and of a single selection at most one is selected. A row that
    // gets focus and selection at once becomes the mark.
    void SetSingleSelection(bool single);
    bool IsSingleSelection() const { return single; }
    unsigned State(int row) const;
    void SetState(int row, unsigned state, unsigned mask);
    void SelectOnly(int first, int last);  // the rows between, in either order
    void Deselect();
    int SelectedCount() const { return static_cast<int>(selected.size()); }
    // The first row behind `after` that has all of these states; -1 for none.
    int Next(int after, unsigned state) const;

    int Focus() const { return NumberOf(focused); }
    // Where a selection began. It is lost with its row, so that nothing falls to the next one.
    int Mark() const { return NumberOf(mark); }
    int SetMark(int row);  // -1 takes it away; the former mark

    // Stable. While it compares, the rows stand as before and may be read and found; when the
    // comparison throws they stay so.
    void Sort(const Compare& compare);

  private:
    struct Row;
    Row& At(int row) const { return *rows.at(static_cast<size_t>(row)); }
    int NumberOf(const Row* row) const;
    void Forget(Row& row);
    void RemoveFromIndex(Row& row);
    void MakeIndex() const;

    // A row while a list is sorted: dense, since a sort goes through all of them again and again.
    struct Compared {
        Data data = 0;
        int number = -1;
    };
    static bool AllDiffer(const std::vector<Compared>& rows);

    Row* NewRow();
    void Cut(Row& row) const;

    // Rows, texts and index each lie close together: a sort goes through them again and again.
    std::pmr::unsynchronized_pool_resource memory;
    std::deque<Row> made;  // the owner
    std::vector<Row*> rows;
    std::vector<Row*> spare;   // the last of them is used first
    mutable int numbered = 0;  // so many rows at the head know their number
    int columns = 0;
    // So many times the rows were to keep the texts of the first `kept` columns only.
    unsigned cuts = 0;
    int kept = 0;
    bool single = false;
    // Of data other than 0, which every row begins with. Made at the first look-up: a list that is
    // filled again and again may never need it.
    mutable std::pmr::unordered_multimap<Data, Row*> index{&memory};
    mutable bool indexed = false;
    std::unordered_set<Row*> selected;
    Row* focused = nullptr;
    Row* mark = nullptr;
    std::array<Compared, 2> compared;  // while a list of distinct data is sorted
};

}  // namespace window
