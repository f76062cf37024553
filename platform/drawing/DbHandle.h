// OdDbHandle: the number by which a drawing names an object.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/text/OdString.h"

// 0 is no handle. As text it is upper-case hexadecimal without leading zeros.
class OdDbHandle {
  public:
    OdDbHandle() = default;
    OdDbHandle(uint64_t value) : value(value) {}
    OdDbHandle(int value) : value(static_cast<uint64_t>(value)) {}
    OdDbHandle(const char16_t* digits) { *this = digits; }
    OdDbHandle(const char* digits) { *this = digits; }

    // Reads the leading hexadecimal digits, upper or lower case; 0 when there are none. Of more
    // than 16 digits the last 16 count. Null is no digits.
    OdDbHandle& operator=(const char16_t* digits);
    OdDbHandle& operator=(const char* digits);
    OdDbHandle& operator=(const OdString& digits) { return *this = digits.c_str(); }
    OdDbHandle& operator=(uint64_t number) {
        value = number;
        return *this;
    }

    OdString ascii() const;
    // Digits and a terminator; room for 17 units.
    void getIntoAsciiBuffer(char16_t* buffer) const;
    void getIntoAsciiBuffer(char* buffer) const;

    bool isNull() const { return value == 0; }
    operator uint64_t() const { return value; }  // also what compares handles

  private:
    uint64_t value = 0;
};

template <>
struct std::hash<OdDbHandle> {
    size_t operator()(OdDbHandle handle) const noexcept {
        return std::hash<uint64_t>()(static_cast<uint64_t>(handle));
    }
};
