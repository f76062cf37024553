// OdString: the narrow form until the wide one is asked for, and changes to the wide one.
#include "platform/text/OdString.h"

#include <algorithm>

#include "platform/text/Conversion.h"

OdString::OdString(const char* narrow)
    : narrow(narrow ? narrow : ""), narrowOnly(!this->narrow.empty()) {}

void OdString::syncUnicode() const {
    if (!narrowOnly) return;
    wide = text::WideFromNarrow(narrow);
    narrow.clear();
    narrowOnly = false;
}

std::string OdString::narrowText() const {
    return narrowOnly ? narrow : text::NarrowFromWide(wide);
}

std::u16string& OdString::edit() {
    syncUnicode();
    return wide;
}

OdString& OdString::trimLeft() {
    edit().erase(0, wide.size() - text::TrimLeft(wide).size());
    return *this;
}

OdString& OdString::trimRight() {
    edit().resize(text::TrimRight(wide).size());
    return *this;
}

OdString& OdString::makeUpper() {
    edit() = text::ToUpper(edit());
    return *this;
}

int OdString::iCompare(const OdString& other) const {
    return text::CompareNoCase(text(), other.text());
}

int OdString::find(const OdString& search, int start) const {
    return static_cast<int>(text().find(search.text(), std::max(start, 0)));
}

OdString OdString::mid(int first, int count) const {
    first = std::clamp(first, 0, getLength());
    return text().substr(first, std::max(count, 0));
}

OdString& OdString::operator+=(const OdString& other) {
    edit() += other.text();
    return *this;
}

OdString& OdString::operator+=(char16_t unit) {
    edit() += unit;
    return *this;
}
