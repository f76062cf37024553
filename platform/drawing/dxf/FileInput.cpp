// Reads a file into a buffer whose first bytes can be looked at while the others are on their way.
#include "platform/drawing/dxf/FileInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <future>
#include <vector>

#include "platform/drawing/dxf/Descriptor.h"
#include "platform/drawing/dxf/Group.h"

namespace dxf {

namespace {

[[noreturn]] void Fail(std::string_view what, int error) {
    throw Error(std::string(what) + ": " + std::strerror(error));
}

[[noreturn]] void FailAsChanged() {
    throw Error("the file changed while it was read; try again when nobody writes it");
}

// expected: the size as far as it is known; one byte more is reserved so that the end is noticed
// without another allocation.
void ReadAll(int file, size_t expected, Buffer& buffer) {
    constexpr size_t kLeast = 64 * 1024;
    buffer.Reserve(std::max(expected + 1, kLeast));
    size_t filled = 0;
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

std::unique_ptr<Descriptor> Open(const std::string& nativePath) {
    const int file = ::open(nativePath.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) Fail("the file cannot be opened", errno);
    return std::make_unique<Descriptor>(file);
}

void RequireFile(const struct stat& found) {
    if (S_ISDIR(found.st_mode)) throw Error("this is a folder, and a drawing file is expected");
    if (S_ISCHR(found.st_mode) || S_ISBLK(found.st_mode))
        throw Error("this is a device, and a drawing file is expected");
}

}  // namespace

// A large file comes in pieces. A thread of their own brings them in their order; who waits for one
// that another thread is bringing brings the next meanwhile, since most of the work is making fresh
// memory ready, and two do that in half the time.
class IncomingPieces {
  public:
    IncomingPieces(int file, char* to, size_t size)
        : file(file), to(to), size(size), there((size + kPiece - 1) / kPiece) {
        reading = std::async(std::launch::async, [this] {
            while (BringNext()) continue;
        });
    }
    ~IncomingPieces() { next = there.size(); }

    void Await(size_t end) {
        for (; awaited * kPiece < end; ++awaited) {
            while (!there[awaited]) {
                if (!BringNext()) there[awaited].wait(false);
            }
        }
        if (error == kEnded) FailAsChanged();
        if (error != 0) Fail("the file cannot be read", error);
    }

  private:
    static constexpr size_t kPiece = size_t(1) << 20;
    static constexpr int kEnded = -1;

    // False when every piece is there or being brought.
    bool BringNext() {
        const size_t piece = next++;
        if (piece >= there.size()) return false;
        const size_t begin = piece * kPiece;
        Bring(begin, std::min(begin + kPiece, size));
        there[piece] = true;
        there[piece].notify_one();
        return true;
    }

    void Bring(size_t at, size_t end) {
        while (at < end && error == 0) {
            const ssize_t got = ::pread(file, to + at, end - at, off_t(at));
            if (got > 0) at += size_t(got);
            if (got == 0) error = kEnded;
            if (got < 0 && errno != EINTR) error = errno;
        }
    }

    const int file;
    char* const to;
    const size_t size;
    std::vector<std::atomic<bool>> there;
    size_t awaited = 0;            // all pieces before are there
    std::atomic<size_t> next = 0;  // to be brought
    std::atomic<int> error = 0;    // an errno, or kEnded when the file is shorter than it was
    std::future<void> reading;     // last: it uses the others
};

FileInput::FileInput(const std::string& nativePath, Buffer& bytes) : name(nativePath) {
    if (name == "-") {
        ReadAll(STDIN_FILENO, 0, bytes);
        return;
    }
    file = Open(name);
    struct stat found;
    if (::fstat(file->Number(), &found) != 0) Fail("the file cannot be looked at", errno);
    RequireFile(found);
    identity = IdentityOf(found);
    std::error_code failed;
    path = std::filesystem::canonical(name, failed).string();
    constexpr off_t kLarge = off_t(8) << 20;
    if (found.st_size < kLarge) {
        ReadAll(file->Number(), size_t(found.st_size), bytes);
        return;
    }
    size = size_t(found.st_size);
    bytes.Reserve(size);
    bytes.SetSize(size);
    pieces = std::make_unique<IncomingPieces>(file->Number(), bytes.Data(), size);
}

FileInput::~FileInput() = default;

void FileInput::Await(size_t end) {
    if (pieces) pieces->Await(end);
}

void FileInput::Finish() {
    Await(size);
    char behind;
    if (pieces && ::pread(file->Number(), &behind, 1, off_t(size)) > 0) FailAsChanged();
    FileIdentity now;
    if (file) IdentifyFile(name, now);
    if (!(now == identity)) FailAsChanged();
}

}  // namespace dxf
