// File names of loaded modules.
#pragma once

#include "platform/win32/Types.h"

// The module that holds an address, for instance that of a function; null if none does.
HMODULE ModuleOfAddress(const void* address);

// The absolute file name, in the spelling of Windows (WindowsPath), of a module, or of the process
// image when module is null. The result is its length without the terminator. As on Windows a name
// that does not fit is cut, terminated, and the result is room with ERROR_INSUFFICIENT_BUFFER; 0 is
// a failure.
DWORD GetModuleFileNameW(HMODULE module, char16_t* name, DWORD room);
