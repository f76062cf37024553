// Drawings in DWG come in through a converter that the settings name.
#pragma once

#include <QStringList>
#include <chrono>
#include <string>

#include "platform/drawing/DbDatabase.h"

namespace host {

struct DwgConverter {
    QStringList command;  // program and arguments, {in} and {out} among them; no shell reads it
    std::chrono::seconds timeLimit{120};
};

bool IsDwg(const std::string& nativePath);  // by its content; false for what cannot be read

// The drawing as the converter sees it, which may lack kinds of objects; the DWG file is only
// copied. The drawing counts as not saved. May be called on every thread. Throws Error: there is no
// converter, it does not start, takes too long, fails, or leaves no drawing that is whole.
OdDbDatabasePtr ImportDwg(const std::string& nativePath, const DwgConverter& converter);

}  // namespace host
