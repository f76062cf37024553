// Finds line ends many bytes at a time.
#pragma once

#include <cstddef>
#include <cstdint>

namespace dxf {

// Writes base + i for every data[i] that is the terminator, and returns how many there are. Reads
// up to the next multiple of 64 bytes; out has room for size + 8.
size_t FindLineEnds(const char* data, size_t size, char terminator, size_t base, size_t* out);

// How often the byte occurs, for line numbers in messages.
uint64_t CountByte(const char* data, uint64_t size, char byte);

}  // namespace dxf
