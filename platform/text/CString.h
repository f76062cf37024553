// CString: a string of 16-bit characters with the member names of MFC.
#pragma once

#include <concepts>
#include <initializer_list>
#include <string>
#include <type_traits>

class CString {
  public:
    CString() = default;
    CString(const char16_t* wide) : wide(wide ? wide : u"") {}
    CString(const char* narrow);  // UTF-8; null gives an empty string
    CString(std::u16string wide) : wide(std::move(wide)) {}
    CString(const char16_t* wide, int length) : wide(wide, length) {}

    int GetLength() const { return static_cast<int>(wide.size()); }
    bool IsEmpty() const { return wide.empty(); }
    void Empty() { wide.clear(); }
    const char16_t* GetString() const { return wide.c_str(); }
    const std::u16string& Text() const { return wide; }
    char16_t GetAt(int index) const { return wide.at(index); }

    // Conversions d, i, u, x, X, c and s, and %%, with flags, width and precision. The lengths h, l
    // and ll are read and not needed: numbers of all sizes, wide and narrow texts tell what they
    // are. Throws std::invalid_argument for any other conversion and for an argument that is
    // missing or of the wrong kind.
    template <class... Arguments>
    void Format(const char16_t* format, const Arguments&... arguments) {
        FormatWith(format, {Argument(arguments)...});
    }

    CString& MakeUpper();
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();

    // All occurrences, exact case; the number of replacements. An empty search text changes
    // nothing.
    int Replace(const CString& search, const CString& replacement);

    // The first occurrence at or behind start, -1 for none.
    int Find(const CString& search, int start = 0) const;
    int Find(char16_t unit, int start = 0) const;

    // Below, at or above 0.
    int Compare(const CString& other) const { return wide.compare(other.wide); }
    int CompareNoCase(const CString& other) const;

    // Indexes and counts outside the text are brought to its ends.
    CString Mid(int first) const { return Mid(first, GetLength()); }
    CString Mid(int first, int count) const;
    CString Left(int count) const { return Mid(0, count); }
    CString Right(int count) const;

    // The next run of characters outside delimiters from start on; start moves behind it and
    // becomes -1, with an empty result, when there is none.
    CString Tokenize(const char16_t* delimiters, int& start) const;

    CString& operator+=(const CString& other);
    CString& operator+=(char16_t unit);

    friend bool operator==(const CString& a, const CString& b) { return a.wide == b.wide; }
    friend bool operator==(const CString& a, const char16_t* b) { return a.wide == (b ? b : u""); }
    friend bool operator<(const CString& a, const CString& b) { return a.wide < b.wide; }

  private:
    struct Argument {
        template <std::integral Number>
        Argument(Number number)
            : isNumber(true),
              number(static_cast<long long>(number)),
              bits(static_cast<std::make_unsigned_t<Number>>(number)) {}
        Argument(const char16_t* text) : text(text ? text : u"") {}
        Argument(const char* narrow) : text(CString(narrow).wide) {}

        bool isNumber = false;
        long long number = 0;
        unsigned long long bits = 0;  // of the number in its own size, for u, x and X
        std::u16string text;
    };

    void FormatWith(const char16_t* format, std::initializer_list<Argument> arguments);

    std::u16string wide;
};
