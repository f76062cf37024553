// Numbers read from text.
#include "platform/win32/Numbers.h"

#include <algorithm>
#include <limits>

#include "platform/text/Conversion.h"

int _wtoi(const char16_t* text) {
    if (!text) return 0;
    while (text::IsSpace(*text)) ++text;
    bool negative = *text == u'-';
    if (negative || *text == u'+') ++text;
    int64_t value = 0;
    constexpr int64_t kLimit = int64_t{1} << 32;  // any number beyond int
    for (; *text >= u'0' && *text <= u'9'; ++text) {
        value = std::min(value * 10 + (*text - u'0'), kLimit);
    }
    value = std::clamp<int64_t>(negative ? -value : value, std::numeric_limits<int>::min(),
                                std::numeric_limits<int>::max());
    return static_cast<int>(value);
}
