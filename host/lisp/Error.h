// The one kind of failure that an evaluation reports.
#pragma once
#include <stdexcept>
#include <string_view>

namespace lisp {

// A line for the user, in UTF-8: what went wrong and with which value. The interpreter that threw
// it can be used again at once: local bindings are undone, and what was set globally before the
// failure stays.
class Error : public std::runtime_error {
  public:
    explicit Error(std::u16string_view line);
};

}  // namespace lisp
