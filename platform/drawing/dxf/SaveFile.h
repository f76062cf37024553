// Writes a file so that a reader, or a power cut, finds the old or the new one and nothing between.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace dxf {

// What tells whether a file on disk is still the one that was read.
struct FileIdentity {
    uint64_t device = 0, inode = 0, size = 0;
    int64_t modifiedSeconds = 0, modifiedNanoseconds = 0;
    bool operator==(const FileIdentity&) const = default;
};

FileIdentity IdentityOf(const struct stat& found);
// False when there is no such file. Throws Error for other failures.
bool IdentifyFile(const std::string& path, FileIdentity& identity);

using VerifyTemporary = std::function<void(const std::string& temporaryPath)>;

// Hands the bytes of a file to a sink, piece by piece in their order.
using Sink = std::function<void(std::string_view)>;
using Content = std::function<void(const Sink&)>;

// Writes the content to a temporary file in the target's folder, syncs it,
// calls verify, renames it and syncs the folder. Where the file system allows it the temporary
// file has no name until it is renamed, so that a program that is killed leaves none behind. The
// permissions are those of the file that is replaced; a symbolic link stays and what it points at
// is replaced. On any failure the target is as it was and the temporary file is gone; throws Error.
void ReplaceFile(const std::string& path, const Content& content, const VerifyTemporary& verify);

// The same to standard output; with verify, by way of a temporary file.
void WriteToStandardOutput(const Content& content, const VerifyTemporary& verify);

}  // namespace dxf
