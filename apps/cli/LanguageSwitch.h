// The switch of a drawing to the language that its records hold, and what of it can be taken back.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "apps/cli/Certificate.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Session.h"
#include "translator/engine/ListaTraduziveis.h"
#include "translator/engine/TrocaIdioma.h"

namespace cli {

// A text that a switch there and back would not leave as it is now, and why.
struct NotReversible {
    std::string kind, key, text, reason;
};

// A language by its key in the records, and by what a report calls it.
struct SwitchLanguage {
    TQString key;
    std::string name;
};

class LanguageSwitch {
  public:
    using ScanDrawing = std::function<traducaoTQ::ListaTraduziveis()>;

    LanguageSwitch(OdDbDatabase& drawing, ScanDrawing scan, SwitchLanguage from, SwitchLanguage to);

    // Switches the drawing in memory. Errors of the scan and of the records pass.
    void Run();
    // Switches back and finds out which texts are others than before Run, then takes that back, so
    // that the drawing is as Run left it.
    void TryBack();

    size_t Objects() const { return objects; }
    size_t Switched() const { return texts.size(); }
    const std::vector<NotReversible>& Remarks() const { return remarks; }
    // What the new file is to hold; views of this object.
    std::vector<ExpectedText> Expected() const;

  private:
    struct Text {
        uint32_t kind;
        TQString key;
        uint64_t handle;
        TQString before, after;
    };
    using OnSwitched = std::function<void(const traducaoTQ::ETraduzivel&, const TQString& before,
                                          const TQString& after)>;
    using OnRemark = std::function<void(const traducaoTQ::ETraduzivel&, std::string reason)>;
    // The number of places looked at.
    size_t SwitchAll(const std::vector<traducaoTQ::ETraduzivel*>& list,
                   traducaoTQ::TrocaDeTextos& change, const SwitchLanguage& source,
                   const OnSwitched& onSwitched, const OnRemark& onRemark);
    void Apply(traducaoTQ::TrocaDeTextos& change, traducaoTQ::ETraduzivel& object,
               const traducaoTQ::TrocaDeTextos::Registro& record, bool asRecorded);
    void DropLost(const traducaoTQ::ListaTraduziveis& after);
    void Compare(const Text& text, const dxf::Store& store);
    void Remark(uint32_t kind, const TQString& key, const TQString& text, std::string reason);

    OdDbDatabase& drawing;
    ScanDrawing scan;
    SwitchLanguage from, to;
    size_t objects = 0;
    std::vector<Text> texts;
    std::vector<NotReversible> remarks;
};

}  // namespace cli
