// Rows are kept where they are made; what moves is the order of pointers to them.
#include "platform/window/ListRows.h"

#include <algorithm>

#include "platform/window/PackedTexts.h"

namespace window {

struct ListRows::Row {
    explicit Row(std::pmr::memory_resource* memory) : texts(memory) {}
    PackedTexts texts;  // of the columns up to the last one that was set
    int number = 0;     // right for the first `numbered` rows
    unsigned cut = 0;   // texts of columns that are gone may be left while this is not `cuts`
    Data data = 0;
};

ListRows::ListRows() = default;
ListRows::~ListRows() = default;

ListRows::Row* ListRows::NewRow() {
    if (spare.empty()) return &made.emplace_back(&memory);
    Row* const row = spare.back();
    spare.pop_back();
    row->texts.Clear();
    return row;
}

void ListRows::Cut(Row& row) const {
    if (row.cut != cuts) row.texts.Truncate(static_cast<size_t>(kept));
    row.cut = cuts;
}

int ListRows::Insert(int row, std::u16string_view text, Data data) {
    if (row < 0 || row > Count()) row = Count();
    Row* const inserted = NewRow();
    inserted->texts.Set(0, text);
    inserted->cut = cuts;
    inserted->data = data;
    inserted->number = row;
    if (indexed && data) index.emplace(data, inserted);
    const bool known = row == Count() && numbered == row;
    rows.insert(rows.begin() + row, inserted);
    numbered = known ? row + 1 : std::min(numbered, row);
    return row;
}

void ListRows::Erase(int row) {
    Forget(At(row));
    spare.push_back(rows[row]);
    rows.erase(rows.begin() + row);
    numbered = std::min(numbered, row);
}

void ListRows::Clear() {
    index.clear();
    indexed = false;
    selected.clear();
    focused = mark = nullptr;
    // In the order in which they lie in memory, whatever the list has been sorted by.
    spare.clear();
    for (auto row = made.rbegin(); row != made.rend(); ++row) spare.push_back(&*row);
    rows.clear();
    numbered = 0;
}

void ListRows::Reserve(int count) { rows.reserve(static_cast<size_t>(std::max(count, 0))); }

void ListRows::InsertColumn(int column) {
    // The text of a list without columns becomes that of its first column; behind the last column
    // no row has a text.
    if (column < columns) {
        for (Row* row : rows) {
            Cut(*row);
            row->texts.Insert(static_cast<size_t>(column));
        }
    }
    ++columns;
}

void ListRows::EraseColumn(int column) {
    --columns;
    // Rows lose the texts of the last column when they get others: most are then in use anyway.
    const bool last = column == columns;
    if (last && kept == column) {
        ++cuts;
        return;
    }
    for (Row* row : rows) {
        Cut(*row);
        row->texts.Erase(static_cast<size_t>(column));
    }
    if (last) kept = column;
}

std::u16string_view ListRows::Text(int row, int column) const {
    const Row& asked = At(row);
    if (column >= kept && asked.cut != cuts) return {};
    return asked.texts.At(static_cast<size_t>(column));
}

bool ListRows::SetText(int row, int column, std::u16string_view text) {
    Row& changed = At(row);
    if (column < 0 || column >= std::max(columns, 1)) return false;
    Cut(changed);
    changed.texts.Set(static_cast<size_t>(column), text);
    return true;
}

ListRows::Data ListRows::DataOf(int row) const { return At(row).data; }

void ListRows::SetData(int row, Data data) {
    Row& changed = At(row);
    RemoveFromIndex(changed);
    changed.data = data;
    if (indexed && data) index.emplace(data, &changed);
}

int ListRows::Find(Data data, int after) const {
    int found = -1;
    if (!data) {
        for (int row = after + 1; row < Count() && found < 0; ++row)
            if (!rows[row]->data) found = row;
        return found;
    }
    for (const Compared& row : compared)
        if (row.data == data && row.number > after) return row.number;
    if (!indexed) MakeIndex();
    const auto [first, last] = index.equal_range(data);
    for (auto entry = first; entry != last; ++entry) {
        const int row = NumberOf(entry->second);
        if (row > after && (found < 0 || row < found)) found = row;
    }
    return found;
}

void ListRows::SetSingleSelection(bool newSingle) {
    single = newSingle;
    if (!single || selected.size() < 2) return;
    const int kept = Next(-1, kSelected);
    SelectOnly(kept, kept);
}

unsigned ListRows::State(int row) const {
    Row& asked = At(row);
    return (&asked == focused ? kFocused : 0) | (selected.contains(&asked) ? kSelected : 0);
}

void ListRows::SetState(int row, unsigned state, unsigned mask) {
    Row& changed = At(row);
    if (mask & kFocused) {
        if (state & kFocused)
            focused = &changed;
        else if (focused == &changed)
            focused = nullptr;
    }
    if (mask & kSelected) {
        if (single && state & kSelected) selected.clear();
        if (state & kSelected)
            selected.insert(&changed);
        else
            selected.erase(&changed);
    }
    constexpr unsigned both = kFocused | kSelected;
    if ((state & mask & both) == both) mark = &changed;
}

void ListRows::SelectOnly(int first, int last) {
    selected.clear();
    if (single) first = last;
    for (int row = std::min(first, last); row <= std::max(first, last); ++row)
        selected.insert(&At(row));
}

void ListRows::Deselect() { selected.clear(); }

int ListRows::Next(int after, unsigned state) const {
    if (state & kFocused) {
        const int focus = Focus();
        return focus > after && (State(focus) & state) == state ? focus : -1;
    }
    if (state & kSelected && selected.empty()) return -1;
    for (int row = std::max(after + 1, 0); row < Count(); ++row)
        if ((State(row) & state) == state) return row;
    return -1;
}

int ListRows::SetMark(int row) {
    const int former = Mark();
    mark = row < 0 ? nullptr : &At(row);
    return former;
}

void ListRows::Sort(const Compare& compare) {
    std::vector<Compared> sorted;
    sorted.reserve(rows.size());
    for (int row = 0; row < Count(); ++row) sorted.push_back({rows[row]->data, row});
    const bool distinct = AllDiffer(sorted);
    const auto before = [&](const Compared& a, const Compared& b) {
        // Comparisons find their rows by these data: no look-ups for them.
        if (distinct) compared = {a, b};
        return compare(a.data, b.data) < 0;
    };
    struct EndOfComparing {
        ListRows& list;
        ~EndOfComparing() { list.compared = {}; }
    } end{*this};
    std::stable_sort(sorted.begin(), sorted.end(), before);
    std::vector<Row*> moved;
    moved.reserve(rows.size());
    for (const Compared& row : sorted) moved.push_back(rows[row.number]);
    rows = std::move(moved);
    numbered = 0;
}

bool ListRows::AllDiffer(const std::vector<Compared>& rows) {
    std::vector<Data> data;
    data.reserve(rows.size());
    for (const Compared& row : rows) data.push_back(row.data);
    std::sort(data.begin(), data.end());
    return std::adjacent_find(data.begin(), data.end()) == data.end();
}

void ListRows::MakeIndex() const {
    index.reserve(rows.size());
    for (Row* row : rows)
        if (row->data) index.emplace(row->data, row);
    indexed = true;
}

int ListRows::NumberOf(const Row* row) const {
    if (!row) return -1;
    if (row->number >= numbered)
        for (; numbered < Count(); ++numbered) rows[numbered]->number = numbered;
    return row->number;
}

void ListRows::Forget(Row& row) {
    RemoveFromIndex(row);
    selected.erase(&row);
    if (focused == &row) focused = nullptr;
    if (mark == &row) mark = nullptr;
}

void ListRows::RemoveFromIndex(Row& row) {
    if (!indexed) return;
    auto [entry, last] = index.equal_range(row.data);
    entry = std::find_if(entry, last, [&](const auto& pair) { return pair.second == &row; });
    if (entry != last) index.erase(entry);
}

}  // namespace window
