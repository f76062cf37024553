// TQString: the one string type that the translator's own code passes around.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "platform/text/CMxString.h"
#include "platform/text/CString.h"
#include "platform/text/OdString.h"

class OdDbHandle;
class TQStringList;

class TQString : public std::u16string {
  public:
    TQString() = default;
    TQString(std::u16string text) : std::u16string(std::move(text)) {}
    TQString(const char16_t* text) : std::u16string(text ? text : u"") {}
    TQString(const char* narrow);
    TQString(const CString& text) : std::u16string(text.Text()) {}
    TQString(const OdString& text) : std::u16string(text.text()) {}
    TQString(OdString&& text) : std::u16string(std::move(text).takeText()) {}
    TQString(const QString& text);           // by the narrow form, so up to a zero character
    TQString(int number, int minimumWidth);  // zeros in front, also in front of a minus sign
    TQString(const OdDbHandle& handle);
    explicit TQString(int) = delete;  // would be a handle: numbers are given with their width

    TQString& operator=(std::u16string text);
    TQString& operator=(const CString& text);
    TQString& operator=(const QString& text);
    TQString& operator=(const char* narrow);
    TQString& operator=(const char16_t* text);

    operator CString() const;
    operator CMxString() const;
    operator OdString() const;
    operator QString() const;
    operator const char16_t*() const { return c_str(); }
    explicit operator bool() const = delete;  // the pointer is never null: ask IsEmpty

    TQString& operator+=(const TQString& text);
    TQString& operator+=(const char16_t* text);
    TQString& operator+=(char16_t unit);

    // -1, 0 or 1 by code units, a prefix being the lesser. Maps use std::less below instead.
    int Compare(const TQString& other) const;

    bool IsEmpty() const { return empty(); }
    void MakeUpper();
    void Trim();
    void Replace(const TQString& search, const TQString& replacement);
    bool Contains(const TQString& text) const;
    bool EqualsNoCase(const TQString& other) const;
    bool StartsWith(const TQString& start) const;
    int ToInt() const;

    // The runs of characters outside delimiters; no token is empty.
    TQStringList Tokenize(const TQString& delimiters) const;

    friend bool operator==(const TQString& a, const TQString& b);
    friend bool operator==(const TQString& a, const std::u16string& b);
    friend bool operator==(const TQString& a, const CString& b);
    friend bool operator==(const TQString& a, const OdString& b);
    friend bool operator==(const TQString& a, const char16_t* b);  // null counts as empty

    friend TQString operator+(const TQString& a, const TQString& b);
    friend TQString operator+(const TQString& a, std::u16string b);
    friend TQString operator+(const TQString& a, const OdString& b);
    friend TQString operator+(const TQString& a, const char* b);
    friend TQString operator+(const TQString& a, const char16_t* b);
    friend TQString operator+(const char* a, const TQString& b);
    friend TQString operator+(const char16_t* a, const TQString& b);
};

// Ordered maps compare the lengths first, so that "9" stands before "10". The order of the base
// class, which operator< still has, is another one.
template <>
struct std::less<TQString> {
    bool operator()(const TQString& a, const TQString& b) const {
        return a.size() != b.size() ? a.size() < b.size() : a.compare(b) < 0;
    }
};

template <>
struct std::hash<TQString> : std::hash<std::u16string> {};
