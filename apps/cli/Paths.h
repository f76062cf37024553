// Which file a path means, and files of a command that must not be one.
#pragma once

#include <string>
#include <vector>

namespace cli {

// Absolute and without links, also for a file that is not there yet.
std::string CanonicalPath(const std::string& path);

struct NamedFile {
    std::string what;  // for the message
    std::string path;  // empty or a standard stream: no file
};

// Throws cli::WrongUsage if the file is one of the others.
void RequireApart(const NamedFile& file, const std::vector<NamedFile>& others);

}  // namespace cli
