// The numbers of registered messages.
#include "platform/win32/Messages.h"

#include <map>
#include <mutex>
#include <string>

#include "platform/win32/LastError.h"

UINT RegisterWindowMessageW(const char16_t* name) {
    constexpr UINT FIRST = 0xC000, COUNT = 0x4000;
    static std::mutex guard;  // libraries register while they are loaded, from any thread
    static std::map<std::u16string, UINT> numbers;
    const std::lock_guard lock(guard);
    if (!name || !*name || (numbers.size() == COUNT && !numbers.contains(name))) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return numbers.emplace(name, FIRST + static_cast<UINT>(numbers.size())).first->second;
}
