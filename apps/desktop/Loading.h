// Reading a drawing while the window lives on.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "apps/painter/DisplayList.h"
#include "host/DwgImport.h"
#include "platform/drawing/DbDatabase.h"

class QWidget;

namespace desktop {

struct LoadedDrawing {
    OdDbDatabasePtr drawing;
    std::shared_ptr<const painter::DisplayList> list;  // of the whole model space
    bool converted = false;                            // from DWG
};

// Large files are read on a second thread behind a bar that can be cancelled. Nothing when the user
// did; raises OdError when the drawing cannot be read.
// A DWG drawing comes through the converter; host::Error when it cannot.
std::optional<LoadedDrawing> LoadDrawing(QWidget* window, const std::string& nativePath,
                                         const host::DwgConverter& converter);

// The view of a drawing that was read already, behind such a bar when it is large. Null when the
// user cancels. The path is for the bar.
std::shared_ptr<const painter::DisplayList> PrepareView(QWidget* window, OdDbDatabase& drawing,
                                                        const std::string& nativePath);

}  // namespace desktop
