// A file mapped for one pass of reading.
#pragma once

#include <string>
#include <string_view>

namespace cli {

// Throws cli::Error when the file cannot be opened or mapped.
class MappedFile {
  public:
    explicit MappedFile(const std::string& nativePath);
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    std::string_view Bytes() const { return {data, size}; }

    // Gives the memory of what was read back, in steps of some megabytes; reading it again reads
    // the file again.
    void DropBefore(size_t position) const;

  private:
    char* data = nullptr;
    size_t size = 0;
    mutable size_t dropped = 0;
};

}  // namespace cli
