// Handles as hexadecimal text, and the ids of objects.
#include "platform/drawing/DbHandle.h"

#include <charconv>

#include "platform/drawing/DatabaseImpl.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbObjectId.h"

namespace {

template <class Char>
uint64_t leadingHexadecimal(const Char* digits) {
    uint64_t value = 0;
    for (; digits && *digits; ++digits) {
        const Char c = *digits;
        const Char letter = static_cast<Char>(c | 0x20);
        if (c >= '0' && c <= '9') {
            value = value << 4 | static_cast<uint64_t>(c - '0');
        } else if (letter >= 'a' && letter <= 'f') {
            value = value << 4 | static_cast<uint64_t>(letter - 'a' + 10);
        } else {
            break;
        }
    }
    return value;
}

template <class Char>
void putHexadecimal(uint64_t value, Char* buffer) {
    char digits[16] = {};
    const char* end = std::to_chars(digits, digits + sizeof digits, value, 16).ptr;
    for (const char* p = digits; p != end; ++p) {
        *buffer++ = static_cast<Char>(*p >= 'a' ? *p - 'a' + 'A' : *p);
    }
    *buffer = 0;
}

}  // namespace

OdDbHandle& OdDbHandle::operator=(const char16_t* digits) {
    value = leadingHexadecimal(digits);
    return *this;
}

OdDbHandle& OdDbHandle::operator=(const char* digits) {
    value = leadingHexadecimal(digits);
    return *this;
}

void OdDbHandle::getIntoAsciiBuffer(char16_t* buffer) const { putHexadecimal(value, buffer); }
void OdDbHandle::getIntoAsciiBuffer(char* buffer) const { putHexadecimal(value, buffer); }

OdString OdDbHandle::ascii() const {
    char16_t buffer[17];
    getIntoAsciiBuffer(buffer);
    return OdString(buffer);
}

const OdDbObjectId OdDbObjectId::kNull;

bool OdDbObjectId::isErased() const { return !owner || owner->impl().isErased(index); }

OdDbHandle OdDbObjectId::getHandle() const {
    return owner ? owner->impl().handleOf(index) : OdDbHandle();
}

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode mode, bool openErased) const {
    if (!owner || (!openErased && isErased())) return OdDbObjectPtr();
    return owner->impl().open(index, mode);
}

OdDbObjectPtr OdDbObjectId::safeOpenObject(OdDb::OpenMode mode, bool openErased) const {
    if (!owner) throw OdError(eNullObjectId);
    OdDbObjectPtr object = openObject(mode, openErased);
    if (object.isNull()) {
        throw OdError(eWasErased, OdString(u"object ") + getHandle().ascii() + u" is erased");
    }
    return object;
}
