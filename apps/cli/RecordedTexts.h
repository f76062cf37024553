// The texts that a drawing's records hold in two languages, read ahead of a switch.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DictionaryCache.h"
#include "translator/cad/TQString.h"

namespace cli {

// The records of an object stand far from the object: looked up one by one, most of the time would
// go into waiting for memory. They are read side by side instead, by two threads, while nobody
// changes the drawing.
class RecordedTexts {
  public:
    RecordedTexts(OdDbDatabase& drawing, const TQString& from, const TQString& to);

    struct Texts {
        std::optional<TQString> from, to;  // nothing where there is no record in that language
        bool known =
            false;  // otherwise there is more than plain texts: the drawing has to be asked
    };
    // Of the object with that key, to be kept up to date by whoever changes the records; null for
    // one without records.
    Texts* Find(const TQString& key);

  private:
    struct Row {
        std::u16string key;
        uint64_t records;  // the handle of the object's dictionary
        Texts texts;
    };
    void List(OdDbDatabase& drawing);
    void Read(std::span<Row> rows) const;
    // False where something else than a text is recorded.
    bool ReadText(dxf::RecordIndex records, const TQString& language,
                  std::optional<TQString>& text) const;

    const dxf::Store& store;
    const TQString from, to;
    std::vector<Row> rows;
    NameIndex byKey;
};

}  // namespace cli
