// Mapping of a file, and giving back of what was read.
#include "apps/cli/MappedFile.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "apps/cli/Failure.h"

namespace cli {

namespace {

constexpr size_t kDropStep = size_t{1} << 21;

[[noreturn]] void Fail(const std::string& path) {
    throw Error("cannot read back " + path + ": " + std::strerror(errno));
}

}  // namespace

MappedFile::MappedFile(const std::string& nativePath) {
    const int file = open(nativePath.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) Fail(nativePath);
    struct stat status;
    if (fstat(file, &status) != 0) {
        close(file);
        Fail(nativePath);
    }
    size = static_cast<size_t>(status.st_size);
    void* address = size ? mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0) : nullptr;
    close(file);
    if (address == MAP_FAILED) Fail(nativePath);
    data = static_cast<char*>(address);
    if (data) madvise(data, size, MADV_SEQUENTIAL);
}

MappedFile::~MappedFile() {
    if (data) munmap(data, size);
}

void MappedFile::DropBefore(size_t position) const {
    const size_t end = position / kDropStep * kDropStep;
    if (end <= dropped) return;
    madvise(data + dropped, end - dropped, MADV_DONTNEED);
    dropped = end;
}

}  // namespace cli
