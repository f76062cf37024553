// Comparing of paths.
#include "apps/cli/Paths.h"

#include <filesystem>

#include "apps/cli/Failure.h"
#include "apps/cli/Output.h"

namespace cli {

namespace {

bool IsFile(const NamedFile& file) { return !file.path.empty() && file.path != kStandardStream; }

}  // namespace

std::string CanonicalPath(const std::string& path) {
    std::error_code failed;
    const auto absolute = std::filesystem::absolute(path, failed);
    if (failed) return path;
    const auto canonical = std::filesystem::weakly_canonical(absolute, failed);
    return (failed ? absolute.lexically_normal() : canonical).string();
}

void RequireApart(const NamedFile& file, const std::vector<NamedFile>& others) {
    if (!IsFile(file)) return;
    const std::string canonical = CanonicalPath(file.path);
    for (const NamedFile& other : others) {
        if (!IsFile(other) || CanonicalPath(other.path) != canonical) continue;
        throw WrongUsage(file.what + " and " + other.what + " are one file, " + file.path +
                         "; name another one");
    }
}

}  // namespace cli
