// The code pages of drawings and of the exchange file: bytes to UTF-16 and back.
#pragma once

#include <string>
#include <string_view>

struct CodePageTable;

// A cheap value. The tables of a page are built once, on its first use, and kept; after that all
// operations are look-ups, safe from several threads.
class CodePage {
  public:
    static constexpr int kUtf8 = 65001;
    static constexpr int kWindows1252 = 1252;

    // A number of Windows (1252, 932, 850, 65001, ...). Throws std::invalid_argument for a page
    // that the system has no conversion for or that does not begin with ASCII (EBCDIC).
    explicit CodePage(int number);

    // A name as drawings carry it: "ANSI_1252", "ansi_932", "dos850", "UTF8", "ASCII". An unknown
    // name gives 1252, which is also what "ASCII" is read as, since it has all of it.
    static CodePage FromDrawingName(std::string_view name);

    // Never fails: a byte b of 0x80 and above that decodes to nothing becomes U+DC00 + b.
    std::u16string Decode(std::string_view bytes) const;

    // Appends the bytes of a code point. False, and nothing appended, when the page lacks it.
    // U+DC80 to U+DCFF give the byte that Decode could not read.
    bool Encode(char32_t codePoint, std::string& out) const;

    bool IsDoubleByte() const;
    bool IsLeadByte(unsigned char byte) const;  // false for every byte of UTF-8
    int Number() const { return number; }

    friend bool operator==(const CodePage& a, const CodePage& b) { return a.number == b.number; }

  private:
    int number;
    const CodePageTable* table;  // null for UTF-8
};
