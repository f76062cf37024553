// Loaded before a program's libraries (LD_PRELOAD): counts its calls that change a file, and ends
// it by SIGKILL at the call with the number in DIE_AT; of a write only the first half is done then.
// With DIE_COUNT in place of it the number of calls is written to that file at the end.
#include <dlfcn.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace {

std::atomic<long> calls = 0;

long DieAt() {
    static const long at = [] {
        const char* text = std::getenv("DIE_AT");
        return text ? std::atol(text) : 0L;
    }();
    return at;
}

bool IsLast() { return ++calls == DieAt(); }

void Die() {
    ::kill(::getpid(), SIGKILL);
    for (;;) ::pause();
}

template <class Function>
Function* Next(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

// Calls the function of the C library, unless this call is the last.
template <class Function, class... Arguments>
auto Counted(const char* name, Arguments... arguments) {
    if (IsLast()) Die();
    return Next<Function>(name)(arguments...);
}

struct TellCount {
    ~TellCount() {
        const char* name = std::getenv("DIE_COUNT");
        if (std::FILE* file = name ? std::fopen(name, "w") : nullptr) {
            std::fprintf(file, "%ld", calls.load());
            std::fclose(file);
        }
    }
} const tellCount;

}  // namespace

extern "C" {

ssize_t write(int file, const void* bytes, size_t count) {
    const auto real = Next<ssize_t(int, const void*, size_t)>("write");
    if (!IsLast()) return real(file, bytes, count);
    real(file, bytes, count / 2);
    Die();
    return -1;
}

ssize_t pwrite64(int file, const void* bytes, size_t count, off64_t at) {
    const auto real = Next<ssize_t(int, const void*, size_t, off64_t)>("pwrite64");
    if (!IsLast()) return real(file, bytes, count, at);
    real(file, bytes, count / 2, at);
    Die();
    return -1;
}

ssize_t writev(int file, const iovec* vectors, int count) {
    const auto real = Next<ssize_t(int, const iovec*, int)>("writev");
    if (!IsLast()) return real(file, vectors, count);
    const iovec half{vectors[0].iov_base, vectors[0].iov_len / 2};
    real(file, count > 1 ? vectors : &half, count > 1 ? count / 2 : 1);
    Die();
    return -1;
}

int fsync(int file) { return Counted<int(int)>("fsync", file); }
int fdatasync(int file) { return Counted<int(int)>("fdatasync", file); }
int ftruncate64(int file, off64_t size) {
    return Counted<int(int, off64_t)>("ftruncate64", file, size);
}
int rename(const char* from, const char* to) noexcept {
    return Counted<int(const char*, const char*)>("rename", from, to);
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return Counted<int(int, const char*, int, const char*, int)>("linkat", fromFolder, from,
                                                                 toFolder, to, flags);
}
int unlink(const char* path) noexcept { return Counted<int(const char*)>("unlink", path); }
int mkdir(const char* path, mode_t mode) noexcept {
    return Counted<int(const char*, mode_t)>("mkdir", path, mode);
}
int rmdir(const char* path) noexcept { return Counted<int(const char*)>("rmdir", path); }

}  // extern "C"
