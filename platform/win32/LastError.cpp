// The thread's last error and the texts of the numbers that occur here.
#include "platform/win32/LastError.h"

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

class Win32ErrorCategory : public std::error_category {
  public:
    const char* name() const noexcept override { return "win32"; }

    std::string message(int code) const override {
        switch (static_cast<DWORD>(code)) {
            case ERROR_MOD_NOT_FOUND:
                return "The module could not be found";
            case ERROR_INVALID_PARAMETER:
                return "A parameter is not correct";
            case ERROR_INSUFFICIENT_BUFFER:
                return "The name is longer than the buffer";
            case ERROR_NO_UNICODE_TRANSLATION:
                return "A character has no counterpart in Unicode";
            default:
                return "Error " + std::to_string(code);
        }
    }
};

}  // namespace

DWORD GetLastError() { return lastError; }

void SetLastError(DWORD code) { lastError = code; }

const std::error_category& Win32Errors() {
    static const Win32ErrorCategory category;
    return category;
}
