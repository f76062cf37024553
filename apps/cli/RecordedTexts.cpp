// Reading of recorded texts.
#include "apps/cli/RecordedTexts.h"

#include "apps/cli/SecondThread.h"
#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/TextChunks.h"
#include "platform/text/Conversion.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/engine/RegistrosTraducao.h"

namespace cli {

RecordedTexts::RecordedTexts(OdDbDatabase& drawing, const TQString& from, const TQString& to)
    : store(drawing.store()), from(from), to(to) {
    List(drawing);
    const std::span<Row> all(rows);
    const size_t half = all.size() / 2;
    SideBySide([&] { Read(all.first(half)); }, [&] { Read(all.subspan(half)); });
}

void RecordedTexts::List(OdDbDatabase& drawing) {
    const OdDbDictionaryPtr root = SafeOpen(drawing.getNamedObjectsDictionaryId());
    const OdDbObjectId all = root->getAt(traducaoTQ::VRN_TQ_OBJS_TRADS);
    const dxf::RecordIndex record = store.FindHandle(all.getHandle());
    if (record == dxf::kNoRecord) return;
    ForEachEntry(store, record, [&](std::u16string key, uint64_t handle) {
        rows.push_back({std::move(key), handle, {}});
    });
    byKey.clear(rows.size());
    for (uint32_t place = 0; place < rows.size(); ++place) byKey.add(rows[place].key, place);
}

void RecordedTexts::Read(std::span<Row> part) const {
    for (Row& row : part) {
        const dxf::RecordIndex records = store.FindHandle(row.records);
        Texts& texts = row.texts;
        texts.known = records != dxf::kNoRecord &&
                      store.At(records).type == dxf::RecordType::Dictionary &&
                      ReadText(records, from, texts.from) && ReadText(records, to, texts.to);
    }
}

bool RecordedTexts::ReadText(dxf::RecordIndex records, const TQString& language,
                             std::optional<TQString>& text) const {
    const uint64_t handle = FindEntry(store, records, language);
    if (handle == 0) return true;
    const dxf::RecordIndex value = store.FindHandle(handle);
    if (value == dxf::kNoRecord || store.At(value).type != dxf::RecordType::Xrecord) return false;
    ChunkRun run = ReadStringXrecord(store, value);
    if (run.places.empty()) return false;
    text = std::move(run.text);
    return true;
}

RecordedTexts::Texts* RecordedTexts::Find(const TQString& key) {
    const auto place = byKey.find(key, [&](uint32_t place) {
        const std::u16string& known = rows[place].key;
        return known == key || text::CompareNoCase(known, key) == 0;
    });
    return place ? &rows[*place].texts : nullptr;
}

}  // namespace cli
