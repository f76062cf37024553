// Errors of the command line, and how they are worded.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace cli {

// Work that cannot be done: what() is one line that says what, where, why and what to do.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// Options that do not go together.
class WrongUsage : public Error {
  public:
    using Error::Error;
};

std::string HexHandle(uint64_t handle);  // as drawings spell it: upper case, no leading zeros

// One line on stderr, with the program's name ahead; line ends inside become blanks.
void PrintError(const std::string& message);

}  // namespace cli
