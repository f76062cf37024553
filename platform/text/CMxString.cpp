// CMxString: a QString with the roads to and from the other string classes.
#include "platform/text/CMxString.h"

#include "platform/text/Conversion.h"

namespace {

// Unit by unit, so that unpaired surrogates stay.
QString QtText(std::u16string_view wide) {
    return QString(reinterpret_cast<const QChar*>(wide.data()), wide.size());
}

}  // namespace

CMxString::CMxString(const char16_t* wide) : text(wide ? QtText(wide) : QString()) {}

CMxString::CMxString(const char* narrow) : CMxString(CString(narrow)) {}

CMxString::CMxString(const std::u16string& wide) : text(QtText(wide)) {}

CMxString::CMxString(const CString& wide) : text(QtText(wide.Text())) {}

std::string CMxString::ansi_str() const {
    return text::NarrowFromWide(
        {reinterpret_cast<const char16_t*>(text.utf16()), static_cast<size_t>(text.size())});
}
