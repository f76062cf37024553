// OdString: the string of the drawing database.
#pragma once

#include <string>

// Holds 16-bit text, or only the narrow form (UTF-8) that it was made from until somebody asks for
// the wide one. Reading a string that is still narrow changes it inside: such a string is for one
// thread.
class OdString {
  public:
    OdString() = default;
    OdString(const char16_t* wide) : wide(wide ? wide : u"") {}
    OdString(const char16_t* wide, int length) : wide(wide, length) {}
    OdString(std::u16string wide) : wide(std::move(wide)) {}
    OdString(const char* narrow);  // null gives an empty string

    bool isNarrowOnly() const { return narrowOnly; }
    void syncUnicode() const;  // makes the wide form if there is none yet

    const char16_t* c_str() const { return text().c_str(); }
    const std::u16string& text() const {
        if (narrowOnly) syncUnicode();
        return wide;
    }
    std::u16string takeText() && { return std::move(edit()); }
    std::string narrowText() const;  // UTF-8

    bool isEmpty() const { return text().empty(); }
    int getLength() const { return static_cast<int>(text().size()); }
    void empty() { *this = OdString(); }

    OdString& trimLeft();  // white space
    OdString& trimRight();
    OdString& makeUpper();

    int compare(const OdString& other) const { return text().compare(other.text()); }
    int iCompare(const OdString& other) const;
    int find(const OdString& search, int start = 0) const;  // -1 for none
    OdString mid(int first, int count) const;               // brought to the ends of the text
    OdString left(int count) const { return mid(0, count); }

    OdString& operator+=(const OdString& other);
    OdString& operator+=(char16_t unit);

    friend OdString operator+(OdString a, const OdString& b) { return a += b; }
    friend bool operator==(const OdString& a, const OdString& b) { return a.text() == b.text(); }
    friend bool operator==(const OdString& a, const char16_t* b) {
        return a.text() == (b ? b : u"");
    }
    friend bool operator<(const OdString& a, const OdString& b) { return a.text() < b.text(); }

  private:
    std::u16string& edit();  // the wide form, made if need be

    mutable std::u16string wide;
    mutable std::string narrow;
    mutable bool narrowOnly = false;
};
