// The scan of a drawing as the options of a command ask for it.
#pragma once

#include "apps/cli/Session.h"
#include "translator/engine/ListaTraduziveis.h"

namespace cli {

// Without --pages every layer is a page, in the order of the layer table. A page that is asked for
// brings its layers "$DE", "$SELO" and "$FORMATO". Throws cli::Error for a page that the drawing
// lacks, and OdError from a strict scan.
class Scan {
  public:
    Scan(Session& session, const ScanOptions& options);

    traducaoTQ::ListaTraduziveis Run() const;  // the same result as long as the drawing is the same

  private:
    traducaoTQ::ListaTraduziveis RunStrict() const;

    Session& session;
    ScanOptions options;
    std::vector<std::u16string> pages;
    bool withPageLayers = false;
};

// The layers of a drawing that are pages.
std::vector<std::u16string> PagesOf(OdDbDatabase& drawing, bool withLayer0 = false);

}  // namespace cli
