// TQString: the roads from and to the platform's string types.
#include "translator/cad/TQString.h"

#include "platform/drawing/DbHandle.h"
#include "platform/win32/Numbers.h"
#include "translator/cad/TQStringList.h"

namespace {

CString PaddedNumber(int number, int minimumWidth) {
    CString digits;
    digits.Format(u"%d", number);
    std::u16string text = digits.Text();
    if (int missing = minimumWidth - digits.GetLength(); missing > 0) {
        text.insert(0, missing, u'0');
    }
    return text;
}

}  // namespace

TQString::TQString(const char* narrow) : TQString(CString(narrow)) {}

// The narrow form loses nothing but what stands behind a zero character, so it need not be made.
TQString::TQString(const QString& text)
    : std::u16string(reinterpret_cast<const char16_t*>(text.utf16())) {}

TQString::TQString(int number, int minimumWidth) : TQString(PaddedNumber(number, minimumWidth)) {}

TQString::TQString(const OdDbHandle& handle) {
    char16_t digits[17];
    handle.getIntoAsciiBuffer(digits);
    assign(digits);
}

TQString& TQString::operator=(std::u16string text) {
    std::u16string::operator=(std::move(text));
    return *this;
}

TQString& TQString::operator=(const CString& text) { return *this = text.Text(); }

TQString& TQString::operator=(const QString& text) { return *this = TQString(text); }

TQString& TQString::operator=(const char* narrow) { return *this = TQString(narrow); }

TQString& TQString::operator=(const char16_t* text) { return *this = TQString(text); }

TQString::operator CString() const { return CString(static_cast<const std::u16string&>(*this)); }

TQString::operator CMxString() const { return CMxString(CString(*this)); }

TQString::operator OdString() const { return OdString(static_cast<const std::u16string&>(*this)); }

TQString::operator QString() const {
    CMxString text(*this);
    return static_cast<const QString&>(text);
}

TQString& TQString::operator+=(const TQString& text) {
    append(text);
    return *this;
}

TQString& TQString::operator+=(const char16_t* text) {
    if (text) append(text);
    return *this;
}

TQString& TQString::operator+=(char16_t unit) {
    push_back(unit);
    return *this;
}

int TQString::Compare(const TQString& other) const {
    int order = compare(other);
    return (order > 0) - (order < 0);
}

void TQString::MakeUpper() { *this = CString(*this).MakeUpper(); }

void TQString::Trim() { *this = CString(*this).Trim(); }

void TQString::Replace(const TQString& search, const TQString& replacement) {
    CString text(*this);
    text.Replace(search, replacement);
    *this = text;
}

bool TQString::Contains(const TQString& text) const { return CString(*this).Find(text) != -1; }

bool TQString::EqualsNoCase(const TQString& other) const {
    return CString(*this).CompareNoCase(other) == 0;
}

bool TQString::StartsWith(const TQString& start) const {
    return compare(0, start.size(), start) == 0;
}

int TQString::ToInt() const { return _wtoi(c_str()); }

TQStringList TQString::Tokenize(const TQString& delimiters) const {
    TQStringList tokens;
    for (size_t begin = 0; (begin = find_first_not_of(delimiters, begin)) != npos;) {
        size_t end = std::min(find_first_of(delimiters, begin), size());
        tokens.push_back(substr(begin, end - begin));
        begin = end;
    }
    return tokens;
}

bool operator==(const TQString& a, const TQString& b) {
    return a.size() == b.size() && a.compare(b) == 0;
}

bool operator==(const TQString& a, const std::u16string& b) {
    return a.size() == b.size() && a.compare(b) == 0;
}

bool operator==(const TQString& a, const CString& b) { return a == b.Text(); }

bool operator==(const TQString& a, const OdString& b) { return a == b.text(); }

bool operator==(const TQString& a, const char16_t* b) { return a.compare(b ? b : u"") == 0; }

TQString operator+(const TQString& a, const TQString& b) {
    TQString sum;
    sum.reserve(a.size() + b.size());
    sum.append(a).append(b);
    return sum;
}

TQString operator+(const TQString& a, std::u16string b) { return a + TQString(std::move(b)); }

TQString operator+(const TQString& a, const OdString& b) { return a + TQString(b); }

TQString operator+(const TQString& a, const char* b) { return a + TQString(b); }

TQString operator+(const TQString& a, const char16_t* b) { return a + TQString(b); }

TQString operator+(const char* a, const TQString& b) { return TQString(a) + b; }

TQString operator+(const char16_t* a, const TQString& b) { return TQString(a) + b; }
