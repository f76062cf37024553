// Display lists as files of pictures.
#pragma once

#include <QByteArray>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/painter/DisplayList.h"
#include "apps/render/Options.h"

namespace render {

// Work that cannot be done: what() is one line that says what, where, why and what to do.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

// The file's bytes. Only PDF takes more than one list, a sheet for each.
QByteArray Picture(const std::vector<painter::DisplayList>& lists, Format format, QSizeF size,
                   const QColor& background);

// In one step: an existing file stays as it was when the new one cannot be written. "-" is standard
// output.
void Write(const std::string& output, const QByteArray& bytes);

}  // namespace render
