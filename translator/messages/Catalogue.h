// Message catalogues: where the file of a module is and how it is read.
#pragma once

#include <map>
#include <memory>

#include "translator/cad/TQString.h"

namespace tq {

using MessageMap = std::map<TQString, TQString>;  // attribute indice to text

// The path of a module's catalogue; empty for an unknown key. Throws std::system_error when the
// directory of the executable cannot be had.
TQString GetCataloguePath(const TQString& module);

// The code of the host's language index, as the files spell it; "en" without a host. The index is
// taken as the host gives it, without a check.
QString LanguageCode();

// The section of a language, or the English one if it has none. Writes a log line first. Null when
// the file is missing, not well-formed, or has no section that can be used.
std::unique_ptr<const MessageMap> LoadCatalogue(TQString path, const QString& languageCode);

}  // namespace tq
