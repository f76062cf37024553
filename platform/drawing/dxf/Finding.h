// What is remarkable about a file that could be read.
#pragma once

#include <cstdint>
#include <string>

namespace dxf {

struct Finding {
    enum class Severity { Note, ReadOnly };  // ReadOnly: readable, not safely editable
    Severity severity;
    uint64_t
        line;  // 1-based line of an ASCII file, byte offset in a binary one; 0 = the whole file
    std::string text;
};

}  // namespace dxf
