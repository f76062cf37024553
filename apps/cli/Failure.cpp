// The one line that a failure leaves on stderr.
#include "apps/cli/Failure.h"

#include <algorithm>
#include <cstdio>

namespace cli {

std::string HexHandle(uint64_t handle) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(handle));
    return digits;
}

void PrintError(const std::string& message) {
    std::string line = message;
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    while (!line.empty() && line.back() == ' ') line.pop_back();
    std::fprintf(stderr, "kelvara: %s\n", line.c_str());
}

}  // namespace cli
