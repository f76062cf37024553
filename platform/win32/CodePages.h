// Narrow text in a code page to wide text and back, as Win32 has it.
#pragma once

#include "platform/win32/Types.h"

inline constexpr UINT CP_ACP = 0;  // the page of SetAnsiCodePage
inline constexpr UINT CP_UTF8 = 65001;

inline constexpr DWORD MB_PRECOMPOSED = 1;
inline constexpr DWORD MB_ERR_INVALID_CHARS = 8;

// Which page CP_ACP is in this process; 1252 until set. Throws std::invalid_argument for a page of
// several bytes and for one that the system has no conversion for.
void SetAnsiCodePage(UINT number);
UINT GetACP();

// A length of -1 means text up to its terminator, which is then converted too. With no room (0) the
// result is the number of units needed. Otherwise it is the number written, and 0 is a failure:
// GetLastError tells ERROR_INSUFFICIENT_BUFFER, ERROR_INVALID_PARAMETER (an empty text, an unknown
// page, a negative room) or ERROR_NO_UNICODE_TRANSLATION (MB_ERR_INVALID_CHARS and bytes that the
// page cannot decode, which otherwise become U+FFFD).
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* narrow, int narrowLength,
                        char16_t* wide, int wideRoom);

// A character that the page lacks becomes defaultChar, "?" when that is null; usedDefault, if
// given, then tells so. UTF-8 takes neither and writes U+FFFD for an unpaired surrogate.
int WideCharToMultiByte(UINT codePage, DWORD flags, const char16_t* wide, int wideLength,
                        char* narrow, int narrowRoom, const char* defaultChar, BOOL* usedDefault);
