// File names of modules from the dynamic loader.
#include "platform/win32/Modules.h"

#include <dlfcn.h>
#include <link.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/win32/LastError.h"
#include "platform/win32/Paths.h"

namespace {

std::string ProcessImage() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::string FileOf(HMODULE module) {
    Dl_info info;
    link_map* map = nullptr;
    if (!module) return ProcessImage();
    if (!dladdr1(module, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP)) return {};
    if (!*map->l_name) return ProcessImage();  // the loader has no name for the program itself
    std::error_code error;
    return std::filesystem::absolute(map->l_name, error).string();
}

}  // namespace

HMODULE ModuleOfAddress(const void* address) {
    Dl_info info;
    return dladdr(address, &info) ? info.dli_fbase : nullptr;
}

DWORD GetModuleFileNameW(HMODULE module, char16_t* name, DWORD room) {
    std::u16string file = WindowsPath(FileOf(module));
    if (file.empty() || room == 0) {
        SetLastError(file.empty() ? ERROR_MOD_NOT_FOUND : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    size_t length = std::min<size_t>(file.size(), room - 1);
    std::copy_n(file.begin(), length, name);
    name[length] = 0;
    bool cut = length < file.size();
    SetLastError(cut ? ERROR_INSUFFICIENT_BUFFER : ERROR_SUCCESS);
    return cut ? room : static_cast<DWORD>(length);
}
