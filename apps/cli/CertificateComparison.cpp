// The walk through two files side by side.
#include "apps/cli/CertificateComparison.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "apps/cli/Failure.h"
#include "platform/drawing/TextChunks.h"
#include "platform/text/Conversion.h"
#include "translator/dialogs/AnteciparMemoria.h"

namespace cli {

namespace {

using traducaoTQ::AnteciparMemoria;

constexpr size_t kBlock = size_t{1} << 22;

// The first fields of a string in the xdata of a wire or a virtual attribute; empty ones do not
// count.
struct Fields {
    explicit Fields(std::u16string_view text) {
        while (!text.empty() && count < field.size()) {
            const size_t end = std::min(text.find(u'\f'), text.size());
            if (end > 0) field[count++] = text.substr(0, end);
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }

    std::array<std::u16string_view, 3> field;
    size_t count = 0;
};

std::u16string_view Trimmed(std::u16string_view text) {
    return text::TrimLeft(text::TrimRight(text));
}

std::string_view WithoutBlanks(std::string_view raw) {
    while (!raw.empty() && raw.front() == ' ') raw.remove_prefix(1);
    while (!raw.empty() && raw.back() == ' ') raw.remove_suffix(1);
    return raw;
}

struct ByHandle {
    bool operator()(const ExpectedText& a, const ExpectedText& b) const {
        return a.handle < b.handle;
    }
    bool operator()(const ExpectedText& a, uint64_t b) const { return a.handle < b; }
};

}  // namespace

void SortByHandle(std::vector<ExpectedText>& texts) {
    if (!std::is_sorted(texts.begin(), texts.end(), ByHandle())) {
        std::sort(texts.begin(), texts.end(), ByHandle());
    }
}

Comparison::Comparison(const dxf::Store& store, std::string_view after,
                       const Expectation& expectation, Found& found, Stretch stretch, Passed passed)
    : store(store),
      before(store.Original().substr(0, stretch.beforeEnd)),
      after(after.substr(0, stretch.afterEnd)),
      texts(expectation.texts),
      present(texts.begin(), texts.begin()),
      found(found),
      records(store, expectation),
      passed(std::move(passed)),
      first(stretch.first),
      last(stretch.last),
      b(stretch.beforeBegin),
      a(stretch.afterBegin),
      index(stretch.first) {}

void Comparison::Other(const std::string& where) {
    if (result.others++ == 0) result.firstOther = where;
}

void Comparison::OtherIn(const RawRecord& record, const char* what) {
    Other(std::string(record.type) + " " + HexHandle(record.handle) + " " + what);
}

// A record that the file before has under no index: its handle is new.
bool Comparison::IsNew(uint64_t handle) const {
    if (handle == 0) return false;
    const dxf::RecordIndex known = store.FindHandle(handle);
    return known == dxf::kNoRecord || known >= store.FileCount();
}

// Moves both positions to the record that holds the next difference; false when there is none.
bool Comparison::SkipEqual() {
    size_t equal = 0;
    for (;;) {
        const size_t here =
            CommonPrefix(before.substr(b + equal, kBlock), after.substr(a + equal, kBlock));
        equal += here;
        if (here < kBlock) break;
        passed(b + equal, a + equal);
    }
    if (b + equal == before.size() && a + equal == after.size()) return false;
    if (first == last || b + equal < Start(first)) {
        Other("the lines ahead of the first group");
        return false;
    }
    while (index + 1 < last && Start(index + 1) <= b + equal) ++index;
    same = b + equal - Start(index);
    a += Start(index) - b;
    b = Start(index);
    return true;
}

// Groups were added behind a record that is otherwise equal: it is that one that changed.
bool Comparison::StepBack() {
    if (index == first) return false;
    const size_t difference = a;
    --index;
    a -= b - Start(index);
    b = Start(index);
    return ReadRecord(store, before, b, oldRecord) && ReadRecord(store, after, a, newRecord) &&
           newRecord.end > difference;
}

// Most records that differ do so in their texts alone.
bool Comparison::ReadTexts() {
    const uint64_t handle = store.At(index).handle;
    if (index + 1 >= last || TextsOf(handle).empty()) return false;
    const std::string_view record = before.substr(b, Start(index + 1) - b);
    if (!ReadDifferences(store, record, after.substr(a), same, oldRecord, newRecord)) return false;
    oldRecord.handle = newRecord.handle = handle;
    newRecord.end += a;
    return true;
}

// Compares what begins at the two positions and moves behind it; false when the rest cannot be
// brought together any more.
bool Comparison::Differ() {
    if (ReadTexts()) return CompareChanged(index);
    if (!ReadRecord(store, before, b, oldRecord)) return Other("an unreadable group"), false;
    if (a == after.size()) return OtherIn(oldRecord, "is missing, and all behind it"), false;
    if (!ReadRecord(store, after, a, newRecord) && !StepBack()) {
        return Other("an unreadable group"), false;
    }
    if (oldRecord.type == newRecord.type && oldRecord.handle == newRecord.handle) {
        return CompareChanged(index);
    }
    const bool structure =
        newRecord.handle == 0 && oldRecord.handle == 0 && newRecord.type != "EOF";
    if (IsNew(newRecord.handle) || structure) {
        if (!records.Added(newRecord)) OtherIn(newRecord, "was added");
        a = newRecord.end;
        return true;
    }
    if (!records.Removed(oldRecord)) OtherIn(oldRecord, "is missing");
    if (index + 1 >= last) {
        if (a != after.size()) OtherIn(oldRecord, "is missing, and all behind it");
        return false;
    }
    b = Start(++index);
    return true;
}

bool Comparison::CompareChanged(dxf::RecordIndex record) {
    const uint64_t handle = store.At(record).handle;
    if (!TextsOf(handle).empty()) {
        CompareTexts(handle);
    } else if (!(oldRecord.items == newRecord.items) && !records.Changed(oldRecord, newRecord)) {
        OtherIn(oldRecord, "differs");
    }
    a = newRecord.end;
    if (index + 1 < last) {
        b = Start(++index);
        return true;
    }
    b = oldRecord.end;
    if (before.substr(b) != after.substr(a)) Other("the lines behind the last group");
    return false;
}

// The texts stand anywhere in memory.
void Comparison::FetchAhead(size_t next) const {
    constexpr size_t kText = 8, kUnits = 4;
    if (next + kText >= texts.size()) return;
    AnteciparMemoria(texts[next + kText].before);
    AnteciparMemoria(texts[next + kText].after);
    AnteciparMemoria(texts[next + kUnits].before->data());
    AnteciparMemoria(texts[next + kUnits].after->data());
}

// Objects mostly stand in the file in the order of their handles, and are asked for several times.
std::span<const ExpectedText> Comparison::TextsOf(uint64_t handle) {
    if (!present.empty() && present.front().handle == handle) return present;
    const auto behind = texts.begin() + (present.data() + present.size() - texts.data());
    const bool next = behind != texts.end() && behind->handle == handle;
    const auto begin =
        next ? behind : std::lower_bound(texts.begin(), texts.end(), handle, ByHandle());
    const auto isOther = [&](const ExpectedText& text) { return text.handle != handle; };
    present = {begin, std::find_if(begin, texts.end(), isOther)};
    for (const ExpectedText& text : present) FetchAhead(static_cast<size_t>(&text - texts.data()));
    return present;
}

void Comparison::CompareTexts(uint64_t handle) {
    const size_t count = std::max(oldRecord.items.size(), newRecord.items.size());
    for (size_t i = 0; i < count; ++i) {
        if (i >= oldRecord.items.size() || i >= newRecord.items.size()) {
            return OtherIn(oldRecord, "has other groups");
        }
        const Item& old = oldRecord.items[i];
        const Item& now = newRecord.items[i];
        if (old == now) continue;
        if (!IsExpected(handle, old, now)) {
            OtherIn(oldRecord, ("differs in group " + std::to_string(old.code)).c_str());
        }
    }
}

bool Comparison::IsExpected(uint64_t handle, const Item& old, const Item& now) {
    if (old.code != now.code || old.part != now.part) return false;
    const bool xdata = old.part == Item::Part::XData;
    if (xdata ? !ReadFields(old, now) : old.code != 1) return false;
    for (const ExpectedText& text : TextsOf(handle)) {
        const auto position = static_cast<size_t>(&text - texts.data());
        // Each string takes an expected text of its own. An attribute with a text of several lines
        // inside holds its one text there once more.
        const bool again = old.part == Item::Part::Embedded;
        if (text.xdata != xdata || found[position] != again) continue;
        if (!(xdata ? FieldsMatch(text) : Matches(text, old, now))) continue;
        bool was = again;
        if (found[position].compare_exchange_strong(was, true)) return true;
    }
    return false;
}

// The text as the codec reads it back, or as it writes it: a text that looks like an escape is read
// as what the escape stands for.
bool Comparison::Says(const Item& item, std::u16string_view text) const {
    return store.Codec().Reads(item.value, text) || store.Codec().Encode(text) == item.value;
}

bool Comparison::HoldsText(const Item& item, std::u16string_view text) const {
    const bool lines = newRecord.type == "MTEXT" || item.part == Item::Part::Embedded;
    if (!lines || text.find(u'\n') == text.npos) return Says(item, text);
    return Says(item, WithParagraphs(text));
}

bool Comparison::HeldText(const Item& item, std::u16string_view text) const {
    return store.Codec().Reads(WithoutBlanks(item.value), text) ||
           Trimmed(store.Codec().Decode(item.value)) == text;
}

// What is embedded may have said the text with formatting codes, which the new one has not.
bool Comparison::Matches(const ExpectedText& text, const Item& old, const Item& now) const {
    const bool held = old.part == Item::Part::Embedded || HeldText(old, *text.before);
    return held && HoldsText(now, *text.after);
}

// Of a string in extended data the second field alone may differ.
bool Comparison::ReadFields(const Item& old, const Item& now) {
    oldString = store.Codec().Decode(old.value);
    newString = store.Codec().Decode(now.value);
    const Fields was(oldString), is(newString);
    oldField = Trimmed(was.field[1]);
    newField = is.field[1];
    return was.count > 1 && is.count > 1 && was.field[0] == is.field[0] &&
           (is.count < 3 || was.field[2] == is.field[2]);
}

bool Comparison::FieldsMatch(const ExpectedText& text) const {
    return oldField == *text.before && newField == *text.after;
}

// An expected text that nothing in the new file shows is a difference too. A text that is the same
// before and after cannot show.
Certificate Comparison::Conclude() {
    for (size_t i = 0; i < texts.size(); ++i) {
        if (found[i]) {
            ++result.strings;
        } else if (*texts[i].before != *texts[i].after) {
            Other("object " + HexHandle(texts[i].handle) + " does not hold its new text");
        }
    }
    for (const uint64_t handle : records.Misplaced()) {
        Other("object " + HexHandle(handle) + " was written outside the records");
    }
    if (records.CountersAlone()) Other("the header or a table counts objects that are not there");
    result.records = records.Count();
    return std::move(result);
}

void Comparison::Run() {
    while (SkipEqual() && Differ()) passed(b, a);
}

void Comparison::Add(const Comparison& next) {
    if (result.others == 0) result.firstOther = next.result.firstOther;
    result.others += next.result.others;
    records.Add(next.records);
}

}  // namespace cli
