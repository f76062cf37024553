// tq::CCMsg: the texts of the user interface, by module and number.
#pragma once

#include "translator/cad/TQString.h"

namespace tq {

class CCMsg {
  public:
    // The text of a number in a module's catalogue, in the language that the host had when the
    // catalogue was loaded; both arguments in any case. Empty for a number without a text,
    // "File not found." when the catalogue cannot be loaded.
    TQString getMensagem(TQString module, TQString number);
};

}  // namespace tq
