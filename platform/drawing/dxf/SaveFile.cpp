// Writes a file so that a reader, or a power cut, finds the old or the new one and nothing between.
#include "platform/drawing/dxf/SaveFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <utility>

#include "platform/drawing/dxf/Descriptor.h"
#include "platform/drawing/dxf/Group.h"

namespace dxf {

namespace {

[[noreturn]] void Fail(const std::string& path, std::string_view what, int error) {
    throw Error(path + ": " + std::string(what) + ": " + std::strerror(error) +
                "; nothing was changed");
}

// Removes a file at the end of a scope unless it was kept.
class Removal {
  public:
    explicit Removal(std::string path) : path(std::move(path)) {}
    ~Removal() {
        if (!path.empty()) ::unlink(path.c_str());
    }
    Removal(const Removal&) = delete;
    Removal& operator=(const Removal&) = delete;
    void Of(const std::string& named) { path = named; }
    void Keep() { path.clear(); }

  private:
    std::string path;
};

// Hands all bytes to the kernel, however little it takes at a time. 0 or an errno.
int WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        bytes.remove_prefix(size_t(written));
    }
    return 0;
}

// Drawings mostly change in small pieces: copying those into a buffer is cheaper than handing each
// to the kernel. Large ones go as they are. While one buffer is written the next is filled. Behind
// an error nothing more is written.
class GatheringFile {
  public:
    explicit GatheringFile(int file) : file(file) { gathered.reserve(kGather); }

    void Add(std::string_view piece) {
        const bool large = piece.size() >= kLarge;
        if (large || gathered.size() + piece.size() > kGather) WriteBeside();
        if (large) {
            Write(piece);
        } else {
            gathered += piece;
        }
    }
    // 0 or an errno.
    int Finish() {
        Write(gathered);
        return error;
    }

  private:
    static constexpr size_t kGather = size_t(1) << 20, kLarge = 64 * 1024;

    void AwaitBeside() {
        if (!beside.valid()) return;
        const int failed = beside.get();
        if (error == 0) error = failed;
    }
    void Write(std::string_view bytes) {
        AwaitBeside();
        if (error == 0) error = WriteAll(file, bytes);
    }
    void WriteBeside() {
        AwaitBeside();
        std::swap(gathered, written);
        gathered.clear();
        if (error != 0 || written.empty()) return;
        beside = std::async(std::launch::async, [this] {
            const int failed = WriteAll(file, written);
            // The disk may begin; whether it could is told by the sync, and a pipe has none.
            ::sync_file_range(file, 0, 0, SYNC_FILE_RANGE_WRITE);
            return failed;
        });
    }

    const int file;
    std::string gathered, written;
    int error = 0;
    std::future<int> beside;  // last: it uses what was gathered
};

int WriteContent(int file, const Content& content) {
    GatheringFile gathering(file);
    content([&](std::string_view piece) { gathering.Add(piece); });
    return gathering.Finish();
}

// The file that a path means: what a link points at, else the path itself.
std::string Resolved(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : path;
}

std::string FolderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

struct Temporary {
    std::string path;  // to read it back by
    int file;
    bool named = true;
};

// A file without a name, so that a program that is killed leaves nothing behind. Some file systems
// have none.
std::optional<Temporary> CreateUnnamed(const std::string& target) {
    const int file = ::open(FolderOf(target).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (file < 0) return std::nullopt;
    Temporary temporary{"/proc/self/fd/" + std::to_string(file), file, false};
    if (::access(temporary.path.c_str(), F_OK) == 0) return temporary;
    ::close(file);
    return std::nullopt;
}

// Calls make with names that are free next to the target until one is taken. Throws Error.
template <class Make>
std::string TakeName(const std::string& target, Make make) {
    for (unsigned number = 0;; ++number) {
        const std::string path =
            target + "." + std::to_string(::getpid()) + "-" + std::to_string(number) + ".tmp";
        if (make(path.c_str())) return path;
        if (errno == EEXIST && number < 1000) continue;
        const int error = errno;
        Fail(target, "no file can be written in the folder " + FolderOf(target), error);
    }
}

// A new file of a name that nobody has; the mask of the process rules its permissions.
Temporary CreateNamed(const std::string& target) {
    int file = -1;
    const std::string path = TakeName(target, [&](const char* name) {
        file = ::open(name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        return file >= 0;
    });
    return {path, file};
}

Temporary CreateTemporary(const std::string& target) {
    const std::optional<Temporary> unnamed = CreateUnnamed(target);
    return unnamed ? *unnamed : CreateNamed(target);
}

// A rename needs a name, for the moment between.
void GiveName(Temporary& temporary, const std::string& target) {
    const std::string unnamed = temporary.path;
    temporary.path = TakeName(target, [&](const char* name) {
        return ::linkat(AT_FDCWD, unnamed.c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
    });
    temporary.named = true;
}

void TakePermissions(int file, const std::string& target) {
    struct stat old;
    if (::stat(target.c_str(), &old) != 0) return;
    if (!S_ISREG(old.st_mode))
        throw Error(target + ": the target is no ordinary file; give another name");
    // The superuser may write to everything, and asks for protection all the same.
    if ((old.st_mode & 0222) == 0) Fail(target, "the file is write-protected", EACCES);
    if (::access(target.c_str(), W_OK) != 0) Fail(target, "the file is write-protected", errno);
    if (::fchmod(file, old.st_mode & 07777) != 0)
        Fail(target, "the permissions of the file cannot be kept", errno);
}

void SyncFolder(const std::string& target) {
    const Descriptor folder(::open(FolderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    // The new file is in place by now; a folder that cannot be synced takes nothing from it.
    if (folder.Number() >= 0) ::fsync(folder.Number());
}

// The disk takes the file while it is verified.
void WriteAndVerify(Descriptor& file, const Temporary& temporary, const std::string& target,
                    const Content& content, const VerifyTemporary& verify) {
    if (const int error = WriteContent(file.Number(), content))
        Fail(target, "the file cannot be written", error);
    auto synced =
        std::async(std::launch::async, [&file] { return ::fsync(file.Number()) == 0 ? 0 : errno; });
    if (verify) verify(temporary.path);
    if (const int error = synced.get()) Fail(target, "the file cannot be written", error);
    if (temporary.named && file.Close() != 0) Fail(target, "the file cannot be written", errno);
}

}  // namespace

FileIdentity IdentityOf(const struct stat& found) {
    return {uint64_t(found.st_dev), uint64_t(found.st_ino), uint64_t(found.st_size),
            int64_t(found.st_mtim.tv_sec), int64_t(found.st_mtim.tv_nsec)};
}

bool IdentifyFile(const std::string& path, FileIdentity& identity) {
    struct stat found;
    if (::stat(path.c_str(), &found) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return false;
        Fail(path, "the file cannot be looked at", errno);
    }
    identity = IdentityOf(found);
    return true;
}

void ReplaceFile(const std::string& path, const Content& content, const VerifyTemporary& verify) {
    const std::string target = Resolved(path);
    Temporary temporary = CreateTemporary(target);
    Descriptor file(temporary.file);
    Removal removal(temporary.named ? temporary.path : "");
    TakePermissions(file.Number(), target);
    WriteAndVerify(file, temporary, target, content, verify);
    if (!temporary.named) {
        GiveName(temporary, target);
        removal.Of(temporary.path);
    }
    if (::rename(temporary.path.c_str(), target.c_str()) != 0)
        Fail(target, "the new file cannot take the place of the old one", errno);
    removal.Keep();
    SyncFolder(target);
}

void WriteToStandardOutput(const Content& content, const VerifyTemporary& verify) {
    if (verify) {
        const Temporary temporary = CreateTemporary(
            (std::filesystem::temp_directory_path() / "standard-output.dxf").string());
        Descriptor file(temporary.file);
        const Removal removal(temporary.named ? temporary.path : "");
        if (const int error = WriteContent(file.Number(), content))
            Fail(temporary.path, "the drawing cannot be written", error);
        verify(temporary.path);
    }
    if (const int error = WriteContent(STDOUT_FILENO, content))
        throw Error("standard output: the drawing cannot be written: " +
                    std::string(std::strerror(error)));
}

}  // namespace dxf
