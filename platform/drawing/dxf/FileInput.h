// Reads a file into a buffer whose first bytes can be looked at while the others are on their way.
#pragma once

#include <memory>
#include <string>

#include "platform/drawing/dxf/Buffer.h"
#include "platform/drawing/dxf/SaveFile.h"

namespace dxf {

class Descriptor;
class IncomingPieces;

// All functions throw Error.
class FileInput {
  public:
    // "-" is standard input and has no identity. A large file's bytes have their place when this
    // returns and are filled in afterwards; the buffer must stay as it is until Finish.
    FileInput(const std::string& nativePath, Buffer& bytes);
    ~FileInput();

    void Await(size_t end);  // returns when the first `end` bytes are there
    void Finish();           // when all are, and the file is still the one that was opened

    const FileIdentity& Identity() const { return identity; }
    const std::string& Path() const { return path; }  // absolute, links resolved; empty for "-"

  private:
    const std::string name;
    FileIdentity identity;
    std::string path;
    size_t size = 0;
    std::unique_ptr<Descriptor> file;
    std::unique_ptr<IncomingPieces> pieces;  // of a large file
};

}  // namespace dxf
