// The last error of the Win32 functions of this folder, one for each thread.
#pragma once

#include <system_error>

#include "platform/win32/Types.h"

DWORD GetLastError();
void SetLastError(DWORD code);

// The category of those numbers, for std::system_error.
const std::error_category& Win32Errors();
