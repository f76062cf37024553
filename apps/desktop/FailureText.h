// What the user is told of a failure.
#pragma once

#include <exception>
#include <string>

namespace host {
class Document;
}

namespace desktop {

// For failures that have a way around: where they came from and what helps, in the user's language.
// Empty for all others.
std::u16string FailureText(const std::exception_ptr& failure, host::Document* document);

}  // namespace desktop
