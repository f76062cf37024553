// The few Win32 types and numbers that code above uses.
#pragma once

#include <cstdint>

using BOOL = int;
using UINT = uint32_t;
using DWORD = uint32_t;

// A loaded library or program: any address inside it, mostly its first (see ModuleOfAddress).
using HMODULE = void*;

inline constexpr DWORD MAX_PATH = 260;

inline constexpr DWORD ERROR_SUCCESS = 0;
inline constexpr DWORD ERROR_MOD_NOT_FOUND = 126;
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;
