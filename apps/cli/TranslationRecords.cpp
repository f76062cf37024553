// Recording of written texts.
#include "apps/cli/TranslationRecords.h"

#include <algorithm>

#include "apps/cli/ReadBack.h"
#include "host/Project.h"
#include "translator/engine/RegistrosTraducao.h"

namespace cli {

namespace {

using structTermo = traducaoTQ::IBDIdiomas::structTermo;

const TQString* RecordOf(const traducaoTQ::RegistrosObjeto& records, const TQString& key) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const auto& record) { return record.first == key; });
    return found == records.end() || found->second.IsEmpty() ? nullptr : &found->second;
}

structTermo TermOf(const TranslationTable& table, const TQString& key,
                   const structExpressao& line) {
    const auto records = traducaoTQ::ReadObjectRecords(key);
    structTermo term;  // an imported line has none of its own
    if (line.termo) term = *line.termo;
    term.translations.resize(
        static_cast<size_t>(std::count_if(table.languages.begin(), table.languages.end(), InUse)));
    size_t column = 0;
    for (const Language& language : table.languages) {
        if (!InUse(language)) continue;
        TQString& text = term.translations.at(column++);
        if (language.key == table.from.key) {
            text = line.original;
        } else if (language.key == table.to->key) {
            text = line.traducao;
        } else if (const TQString* recorded = RecordOf(*records, language.key)) {
            text = *recorded;
        }
    }
    return term;
}

}  // namespace

std::string RecordText(const dxf::Store& drawing, const TranslationTable& table,
                       const traducaoTQ::ETraduzivel& object, const structExpressao& line) {
    // A record is found by the handle: one that is not in the file would name nothing tomorrow.
    const dxf::RecordIndex record = drawing.FindHandle(HandleOf(object));
    if (record != dxf::kNoRecord && (drawing.At(record).flags & dxf::kMemoryHandle)) {
        return "translated, but not recorded: the object has no handle of its own in the file";
    }
    const TQString& key = object.GetChave();
    traducaoTQ::SaveTermRecords(key, TermOf(table, key, line), table.languages);
    return {};
}

std::vector<std::u16string> RecordKeys() {
    return {traducaoTQ::VRN_TQ_OBJS_TRADS, host::kProjectDictionary};
}

}  // namespace cli
