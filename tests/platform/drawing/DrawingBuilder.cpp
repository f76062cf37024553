// Drawings for the tests.
#include "tests/platform/drawing/DrawingBuilder.h"

#include <charconv>
#include <cstdio>
#include <vector>

#include "platform/drawing/dxf/Group.h"

namespace drawing_test {

namespace {

template <class OnGroup>
void eachGroup(std::string_view lines, const OnGroup& onGroup) {
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        lines.remove_prefix(std::min(lines.size(), line.size() + 1));
        if (line.empty()) continue;
        int code = 0;
        const char* rest = std::from_chars(line.data(), line.data() + line.size(), code).ptr;
        const size_t skipped = rest - line.data();
        onGroup(code, line.substr(std::min(line.size(), skipped + 1)));
    }
}

std::string section(const std::string& name, const std::string& content) {
    return "0 SECTION\n2 " + name + "\n" + content + "0 ENDSEC\n";
}

std::string table(const std::string& name, const std::string& handle, const std::string& content) {
    return "0 TABLE\n2 " + name + "\n" +
           (handle.empty() ? "" : "5 " + handle + "\n330 0\n100 AcDbSymbolTable\n") + "70 9\n" +
           content + "0 ENDTAB\n";
}

std::string oldLines(const Parts& parts) {
    return section("HEADER", "9 $ACADVER\n1 " + parts.version + "\n") +
           section("TABLES", table("LAYER", "", "0 LAYER\n2 0\n70 0\n" + parts.layers) +
                                 table("APPID", "", "0 APPID\n2 ACAD\n70 0\n")) +
           section("BLOCKS", parts.blocks) + section("ENTITIES", parts.entities) + "0 EOF\n";
}

}  // namespace

std::string Ascii(std::string_view lines, std::string_view lineEnd) {
    std::string bytes;
    eachGroup(lines, [&](int code, std::string_view value) {
        const std::string digits = std::to_string(code);
        bytes.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ').append(digits);
        bytes.append(lineEnd).append(value).append(lineEnd);
    });
    return bytes;
}

std::string Binary(std::string_view lines, bool wideCodes) {
    dxf::GroupWriter writer(dxf::Format::Binary, wideCodes, "");
    eachGroup(lines, [&](int code, std::string_view value) {
        const std::string text(value);
        switch (dxf::KindOfCode(code)) {
            case dxf::ValueKind::String:
                writer.String(code, text);
                break;
            case dxf::ValueKind::Double:
                writer.Double(code, std::stod(text));
                break;
            default:
                writer.Int(code, std::stoll(text));
        }
    });
    return std::string("AutoCAD Binary DXF\r\n\x1a\0", 22) + writer.Take();
}

std::string Lines(const Parts& parts) {
    if (parts.version <= "AC1009") return oldLines(parts);
    const std::string layer0 =
        "0 LAYER\n5 10\n330 2\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 0\n70 0\n";
    const std::string spaces =
        "0 BLOCK_RECORD\n5 1F\n330 1\n100 AcDbSymbolTableRecord\n100 AcDbBlockTableRecord\n"
        "2 *Model_Space\n0 BLOCK_RECORD\n5 1B\n330 1\n100 AcDbSymbolTableRecord\n"
        "100 AcDbBlockTableRecord\n2 *Paper_Space\n";
    const std::string application =
        "0 APPID\n5 12\n330 9\n100 AcDbSymbolTableRecord\n100 AcDbRegAppTableRecord\n2 ACAD\n70 "
        "0\n";
    return section("HEADER", "9 $ACADVER\n1 " + parts.version + "\n9 $HANDSEED\n5 FFF\n") +
           section("TABLES", table("LAYER", "2", layer0 + parts.layers) +
                                 table("APPID", "9", application) +
                                 table("BLOCK_RECORD", "1", spaces + parts.records)) +
           section("BLOCKS", parts.blocks) + section("ENTITIES", parts.entities) +
           (parts.withObjects ? section("OBJECTS", parts.objects) : "") + "0 EOF\n";
}

OdDbDatabasePtr OpenBytes(std::string bytes) {
    return OdDbDatabase::fromStore(dxf::Store::Parse(std::move(bytes)));
}

OdDbDatabasePtr Open(const Parts& parts) { return OpenBytes(Ascii(Lines(parts))); }

OdDbDatabasePtr Reopened(OdDbDatabase& database) { return OpenBytes(database.toBytes()); }

std::string OutputOf(const std::string& command) {
    std::string output;
    std::FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (!pipe) return "cannot run " + command;
    char block[4096];
    while (const size_t count = std::fread(block, 1, sizeof block, pipe)) {
        output.append(block, count);
    }
    const int status = pclose(pipe);
    return status == 0 ? output : output + "status " + std::to_string(status) + "\n";
}

std::string Difference(const std::string& before, const std::string& after) {
    const auto split = [](const std::string& text) {
        std::vector<std::string> lines;
        for (size_t at = 0, end; at < text.size(); at = end + 1) {
            end = std::min(text.find('\n', at), text.size());
            lines.push_back(text.substr(at, end - at));
        }
        return lines;
    };
    auto a = split(before), b = split(after);
    size_t start = 0;
    while (start < a.size() && start < b.size() && a[start] == b[start]) ++start;
    while (a.size() > start && b.size() > start && a.back() == b.back()) {
        a.pop_back();
        b.pop_back();
    }
    std::string difference;
    for (size_t i = start; i < a.size(); ++i) difference += "-" + a[i] + "\n";
    for (size_t i = start; i < b.size(); ++i) difference += "+" + b[i] + "\n";
    return difference;
}

}  // namespace drawing_test
