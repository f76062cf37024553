// The pass over an ASCII file. It sets the pace of opening a drawing: line ends are found by whole
// blocks, and most pairs of lines are passed over after one look at the code's last three
// characters.
#include <algorithm>
#include <array>
#include <optional>

#include "platform/drawing/dxf/FileIndex.h"
#include "platform/drawing/dxf/LineEnds.h"

namespace dxf {

namespace {

// Classes of characters: 0 to 9 for digits, then these.
constexpr uint8_t kBlank = 10, kLineEnd = 11, kOther = 12;

using ClassTable = std::array<uint8_t, 256>;

constexpr ClassTable MakeClasses(char lineEnd) {
    ClassTable classes{};
    classes.fill(kOther);
    for (int digit = 0; digit < 10; ++digit) classes[size_t('0' + digit)] = uint8_t(digit);
    classes[' '] = classes['\t'] = kBlank;
    classes[uint8_t(lineEnd)] = kLineEnd;
    return classes;
}

constexpr ClassTable kLineFeedClasses = MakeClasses('\n');
constexpr ClassTable kCarriageReturnClasses = MakeClasses('\r');

constexpr size_t KeyOf(size_t first, size_t second, size_t third) {
    return first << 8 | second << 4 | third;
}

// What a code line of at most three characters means, by the classes of the last three characters
// up to its end; for a shorter line the first of them belong to the line before.
constexpr auto kActions = [] {
    std::array<Action, 4096> actions{};
    actions.fill(Action::Exact);
    for (int digit = 0; digit < 10; ++digit) {
        for (size_t before = 0; before < 16; ++before)
            actions[KeyOf(before, kLineEnd, size_t(digit))] = ActionOfCode(digit);
        for (const size_t before : {kBlank, kLineEnd})
            actions[KeyOf(before, kBlank, size_t(digit))] = ActionOfCode(digit);
        for (int ten = 0; ten < 10; ++ten) {
            const int two = 10 * ten + digit;
            for (const size_t before : {kBlank, kLineEnd})
                actions[KeyOf(before, size_t(ten), size_t(digit))] = ActionOfCode(two);
            for (int hundred = 0; hundred < 10; ++hundred)
                actions[KeyOf(size_t(hundred), size_t(ten), size_t(digit))] =
                    ActionOfCode(100 * hundred + two);
        }
    }
    return actions;
}();

class AsciiIndexer {
  public:
    AsciiIndexer(const Buffer& file, FileIndex& index, const Await& await)
        : file(file),
          await(await),
          index(index),
          builder(file, index),
          classes(index.lineEnd == '\n' ? kLineFeedClasses : kCarriageReturnClasses),
          data(file.Data()),
          lineStart(index.bodyBegin),
          ends(kBlock + 10) {}

    void Run();

  private:
    static constexpr size_t kBlock = 64 * 1024;

    void CollectLineEnds(size_t block);
    void TakePairs();
    size_t TakeGroup(Action action, size_t codeStop, size_t codeEnd, size_t valueEnd);
    Action ExactAction(size_t codeStop, size_t codeEnd);
    void StartRecord(std::string_view typeName, size_t valueEnd);
    void RefuseFirstLine(size_t codeStop) const;
    void NoteBadLine(size_t codeStop);
    void FinishAt(size_t offset);
    size_t BodyEnd();
    uint64_t LineNumber(size_t offset) const;

    const Buffer& file;
    const Await& await;
    FileIndex& index;
    IndexBuilder builder;
    const ClassTable& classes;
    const char* data;
    size_t lineStart;          // of the code line that comes next
    std::vector<size_t> ends;  // line ends found and not used yet: the first endCount
    size_t endCount = 0;
    std::optional<size_t> bodyEnd;
    size_t badLines = 0;
    bool done = false;
};

void AsciiIndexer::Run() {
    for (size_t block = 0; block < file.Size() && !done; block += kBlock) {
        await(std::min(block + kBlock, file.Size()));
        CollectLineEnds(block);
        TakePairs();
    }
    // The last line may lack its end.
    if (!done && (file.Size() == 0 || data[file.Size() - 1] != index.lineEnd)) {
        ends[endCount++] = file.Size();
        TakePairs();
    }
    if (done) return;
    if (lineStart < BodyEnd())
        throw Error("line " + std::to_string(LineNumber(lineStart)) +
                    ": the file ends inside a group; its end is missing");
    FinishAt(lineStart);
}

void AsciiIndexer::CollectLineEnds(size_t block) {
    const size_t size = std::min(kBlock, file.Size() - block);
    endCount += FindLineEnds(data + block, size, index.lineEnd, block, ends.data() + endCount);
}

// The inner loop of opening a drawing. What it uses all the time stands in locals, since everything
// it writes could be a member otherwise.
void AsciiIndexer::TakePairs() {
    const char* const bytes = data;
    const uint8_t* const classOf = classes.data();
    const size_t* const end = ends.data();
    const size_t count = endCount;
    size_t used = 0, start = lineStart;
    while (!done && used + 1 < count) {
        const size_t codeEnd = end[used], valueEnd = end[used + 1];
        const size_t codeStop = codeEnd - (bytes[codeEnd - 1] == '\r' && codeEnd > start);
        const auto* last = reinterpret_cast<const unsigned char*>(bytes + codeStop);
        Action action = Action::Exact;
        if (codeStop - start <= 3)
            action = kActions[KeyOf(classOf[last[-3]], classOf[last[-2]], classOf[last[-1]])];
        if (action == Action::None) {
            start = valueEnd + 1;
            used += 2;
            continue;
        }
        lineStart = start;
        used += TakeGroup(action, codeStop, codeEnd, valueEnd);
        start = lineStart;
    }
    lineStart = start;
    if (used < count) ends[0] = ends[used];  // one at most is left
    endCount = count - used;
}

// One group that is not simply passed over; returns how many lines it used.
size_t AsciiIndexer::TakeGroup(Action action, size_t codeStop, size_t codeEnd, size_t valueEnd) {
    if (action == Action::Exact) action = ExactAction(codeStop, codeEnd);
    if (action == Action::Exact) return 1;  // no code: passed over
    const size_t valueBegin = codeEnd + 1;
    const bool strip = valueEnd > valueBegin && data[valueEnd - 1] == '\r';
    const std::string_view value(data + valueBegin, valueEnd - valueBegin - strip);
    if (action == Action::Zero)
        StartRecord(value, valueEnd);
    else if (action != Action::None)
        builder.Take(action, value, lineStart);
    lineStart = valueEnd + 1;
    return 2;
}

// The slow road for all other code lines. Exact when the line is no code at all.
Action AsciiIndexer::ExactAction(size_t codeStop, size_t codeEnd) {
    const int code = ParseCode({data + lineStart, codeStop - lineStart});
    if (code != kNoCode) return ActionOfCode(code);
    if (!builder.SeenRecord()) RefuseFirstLine(codeStop);
    if (lineStart >= BodyEnd()) {
        FinishAt(lineStart);
    } else {
        NoteBadLine(codeStop);
        lineStart = codeEnd + 1;
    }
    return Action::Exact;
}

void AsciiIndexer::StartRecord(std::string_view typeName, size_t valueEnd) {
    builder.Start(lineStart, typeName);
    if (TypeOfName(typeName) == RecordType::Eof) FinishAt(std::min(valueEnd + 1, file.Size()));
}

std::string Excerpt(std::string_view line) {
    std::string text;
    for (const char c : line.substr(0, 40)) text += c >= ' ' && c < 0x7F ? c : '.';
    return '"' + text + '"';
}

void AsciiIndexer::RefuseFirstLine(size_t codeStop) const {
    throw Error("line " + std::to_string(LineNumber(lineStart)) + ": " +
                Excerpt({data + lineStart, codeStop - lineStart}) +
                " stands where a group code is expected; this is no DXF drawing, or its beginning "
                "is missing");
}

// After a line too few or too many every later pair would be read wrongly, so the pass goes on with
// the next line as a code, which brings code and value together again.
void AsciiIndexer::NoteBadLine(size_t codeStop) {
    constexpr size_t kReported = 3;
    if (++badLines > kReported) return;
    index.findings.push_back({Finding::Severity::ReadOnly, LineNumber(lineStart),
                              Excerpt({data + lineStart, codeStop - lineStart}) +
                                  " stands where a group code is expected: a line is missing or "
                                  "superfluous, so the file is opened for reading only"});
}

void AsciiIndexer::FinishAt(size_t offset) {
    done = true;
    if (badLines > 100 && badLines > index.records.Count())
        throw Error(
            "more lines stand where a group code is expected, and are none, than there are "
            "records; the file is damaged or no DXF drawing");
    builder.Finish(std::min(offset, file.Size()));
}

// From there on nothing but blanks and Ctrl-Z.
size_t AsciiIndexer::BodyEnd() {
    if (!bodyEnd) {
        await(file.Size());
        bodyEnd = file.View().find_last_not_of(std::string_view(" \t\r\n\x1A\0", 6)) + 1;
    }
    return *bodyEnd;
}

uint64_t AsciiIndexer::LineNumber(size_t offset) const {
    return CountByte(data, offset, index.lineEnd) + 1;
}

}  // namespace

void IndexAscii(const Buffer& file, FileIndex& index, const Await& await) {
    AsciiIndexer(file, index, await).Run();
}

}  // namespace dxf
