// The failures that the host reports to its program.
#pragma once

#include <QString>
#include <stdexcept>

namespace host {

// what() is one line in UTF-8: what failed, where, why and what to do.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
    explicit Error(const QString& line) : std::runtime_error(line.toStdString()) {}
};

}  // namespace host
