// The switch of a drawing to the language that its records hold, and what of it can be taken back.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/cli/Certificate.h"
#include "apps/cli/RecordedTexts.h"
#include "platform/drawing/DbDatabase.h"
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

// Every text is given in memory what the way back would give it, compared with what it was, and
// then switched. A record that says already what its object says stays as it is; a text in a block
// is written by its handle, since what it says may stand in the block twice.
class LanguageSwitch {
  public:
    LanguageSwitch(OdDbDatabase& drawing, SwitchLanguage from, SwitchLanguage to);

    // The objects of a scan of that drawing, whose texts change. Errors of the records pass.
    void Run(const std::vector<traducaoTQ::ETraduzivel*>& list);

    size_t Objects() const { return objects; }
    size_t Switched() const { return texts.size(); }
    const std::vector<NotReversible>& Remarks() const { return remarks; }
    // What the new file is to hold; the texts are this object's and the list's.
    const std::vector<ExpectedText>& Expected() const { return texts; }

  private:
    bool IsShared(const traducaoTQ::ETraduzivel& object) const;
    void Switch(traducaoTQ::ETraduzivel& object);
    // What is recorded of the object; null for one without records.
    RecordedTexts::Texts* RecordOf(const traducaoTQ::ETraduzivel& object);
    void Apply(traducaoTQ::ETraduzivel& place, RecordedTexts::Texts& record, bool asRecorded);
    void TryBack(const traducaoTQ::ETraduzivel& object, traducaoTQ::ETraduzivel& place,
                 const TQString& before, const TQString& after);
    void Remark(const traducaoTQ::ETraduzivel& object, const TQString& text, std::string reason);

    const dxf::Store& store;
    SwitchLanguage from, to;
    traducaoTQ::TrocaDeTextos change;
    RecordedTexts recorded;
    size_t objects = 0;
    std::unordered_map<std::u16string, int> strings;  // of extended data, by key without case
    std::string was;  // the record that is tried, kept for its memory
    std::vector<ExpectedText> texts;
    std::vector<NotReversible> remarks;
};

}  // namespace cli
