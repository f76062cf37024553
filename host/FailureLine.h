// What a failure says of itself.
#pragma once

#include <exception>
#include <string>

namespace host {

// The description of an OdError, what() of a standard exception; something for all others.
std::u16string FailureLine(const std::exception_ptr& failure);

}  // namespace host
