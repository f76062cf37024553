// Reads a whole file into a buffer.
#include "platform/drawing/dxf/FileInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <future>

#include "platform/drawing/dxf/Group.h"

namespace dxf {

namespace {

[[noreturn]] void Fail(std::string_view what, int error) {
    throw Error(std::string(what) + ": " + std::strerror(error));
}

struct Descriptor {
    int number;
    ~Descriptor() {
        if (number > STDERR_FILENO) ::close(number);
    }
};

// As many bytes as there are up to `size`.
size_t ReadUpTo(int file, char* to, size_t size, size_t offset) {
    size_t filled = 0;
    while (filled < size) {
        const ssize_t got = ::pread(file, to + filled, size - filled, off_t(offset + filled));
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) Fail("the file cannot be read", errno);
        if (got == 0) break;
        filled += size_t(got);
    }
    return filled;
}

// Two threads share the work of a large file: most of it is making fresh memory ready. What the
// file is longer than expected is left to the caller; so is all of one that is shorter.
size_t ReadHalves(int file, size_t expected, Buffer& buffer) {
    const size_t half = expected / 2;
    auto front =
        std::async(std::launch::async, [&] { return ReadUpTo(file, buffer.Data(), half, 0); });
    const size_t back = ReadUpTo(file, buffer.Data() + half, expected - half, half);
    const bool whole = front.get() == half && back == expected - half;
    return whole && ::lseek(file, off_t(expected), SEEK_SET) >= 0 ? expected : 0;
}

// expected: the size as far as it is known; one byte more is reserved so that the end is noticed
// without another allocation.
void ReadAll(int file, size_t expected, Buffer& buffer) {
    constexpr size_t kLeast = 64 * 1024;
    buffer.Reserve(std::max(expected + 1, kLeast));
    constexpr size_t kLarge = size_t(8) << 20;
    size_t filled = expected >= kLarge ? ReadHalves(file, expected, buffer) : 0;
    for (;;) {
        if (filled == buffer.Capacity()) buffer.Reserve(filled + filled / 2);
        const ssize_t got = ::read(file, buffer.Data() + filled, buffer.Capacity() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) Fail("the file cannot be read", errno);
        if (got == 0) break;
        filled += size_t(got);
    }
    buffer.SetSize(filled);
}

FileInput ReadStandardInput() {
    FileInput input;
    ReadAll(STDIN_FILENO, 0, input.bytes);
    return input;
}

}  // namespace

FileInput ReadFile(const std::string& nativePath) {
    if (nativePath == "-") return ReadStandardInput();
    const Descriptor file{::open(nativePath.c_str(), O_RDONLY | O_CLOEXEC)};
    if (file.number < 0) Fail("the file cannot be opened", errno);
    FileInput input;
    struct stat found;
    if (::fstat(file.number, &found) != 0) Fail("the file cannot be looked at", errno);
    if (S_ISDIR(found.st_mode)) throw Error("this is a folder, and a drawing file is expected");
    if (S_ISCHR(found.st_mode) || S_ISBLK(found.st_mode))
        throw Error("this is a device, and a drawing file is expected");
    IdentifyFile(nativePath, input.identity);
    ReadAll(file.number, size_t(found.st_size), input.bytes);
    FileIdentity now;
    IdentifyFile(nativePath, now);
    if (!(now == input.identity))
        throw Error("the file changed while it was read; try again when nobody writes it");
    std::error_code failed;
    input.path = std::filesystem::canonical(nativePath, failed).string();
    return input;
}

}  // namespace dxf
