// Reads a whole file into a buffer.
#pragma once

#include <string>

#include "platform/drawing/dxf/Buffer.h"
#include "platform/drawing/dxf/SaveFile.h"

namespace dxf {

// "-" is standard input and has no identity. Throws Error.
struct FileInput {
    Buffer bytes;
    FileIdentity identity;
    std::string path;  // absolute, links resolved; empty for standard input
};

FileInput ReadFile(const std::string& nativePath);

}  // namespace dxf
