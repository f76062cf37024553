// Paths with backslashes, as the translator writes them, and paths of the file system.
#pragma once

#include <string>
#include <string_view>

// The one place where a path of the translator becomes one of the file system, at the border where
// a file is opened: runs of backslashes and slashes become one slash.
std::string NativePath(std::u16string_view path);

// The other direction: slashes become backslashes. Bytes that are no UTF-8 survive the way there
// and back; a backslash inside a native name does not.
std::u16string WindowsPath(std::string_view native);
