// The language switch of the command line, text by text, and its trial.
#include "apps/cli/LanguageSwitch.h"

#include <algorithm>
#include <optional>

#include "apps/cli/CertificateItems.h"
#include "apps/cli/Output.h"
#include "apps/cli/ReadBack.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/OdError.h"
#include "platform/text/Conversion.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/engine/CamposXdata.h"

namespace cli {

namespace {

using traducaoTQ::ETraduzivel;

// The values of a record's groups, decoded.
std::vector<std::u16string> Values(const dxf::Store& store, std::string_view bytes) {
    RawRecord record;
    std::vector<std::u16string> values;
    ReadRecord(store, bytes, 0, record);
    for (const Item& item : record.items) values.push_back(store.Codec().Decode(item.value));
    return values;
}

// The first value of the record that is another one now than it was; empty for none. Of a string of
// extended data it is what stands behind the name.
std::u16string Difference(const dxf::Store& store, std::string_view was, std::string_view is) {
    const auto before = Values(store, was), now = Values(store, is);
    for (size_t i = 0; i < now.size(); ++i) {
        if (i < before.size() && before[i] == now[i]) continue;
        const size_t name = now[i].find(traducaoTQ::SEPARADOR_CAMPOS[0]);
        return name == now[i].npos ? now[i] : now[i].substr(name + 1);
    }
    return {};
}

std::string Quoted(std::u16string_view text) { return "\"" + Escaped(Utf8(text)) + "\""; }

std::u16string SharedKey(const ETraduzivel& object) { return text::FoldCase(object.GetChave()); }

// Strings of a wire are found by their name. Those of a virtual attribute bear it in their key, so
// that two of one key never have names of their own.
bool HasNameOfItsOwn(const ETraduzivel& object) {
    const auto wire = OdDbPolyline::cast(SafeOpen(IdFromHandle(HandleOf(object))));
    if (wire.isNull()) return false;
    std::vector<TQString> names;
    TQString own;
    traducaoTQ::PercorrerFio(*wire, [&](const OdDbXDataIterator& entry) {
        const OdString read = entry.getString();
        const auto fields = traducaoTQ::LerCamposFio(read.text());
        names.emplace_back(std::u16string(fields.fio));
        if (text::TrimLeft(text::TrimRight(fields.texto)) == *object.GetTexto()) own = names.back();
        return true;
    });
    return std::count(names.begin(), names.end(), own) == 1;
}

}  // namespace

LanguageSwitch::LanguageSwitch(OdDbDatabase& drawing, SwitchLanguage from, SwitchLanguage to)
    : store(drawing.store()),
      from(std::move(from)),
      to(std::move(to)),
      change(this->from.key, this->to.key),
      recorded(drawing, this->from.key, this->to.key) {}

void LanguageSwitch::Remark(const ETraduzivel& object, const TQString& text, std::string reason) {
    remarks.push_back({std::string(traducaoTQ::NomeTipo(object.GetTipo())), Utf8(object.GetChave()),
                       Utf8(text), std::move(reason)});
}

bool LanguageSwitch::IsShared(const ETraduzivel& object) const {
    return IsXdata(object) && strings.at(SharedKey(object)) > 1;
}

void LanguageSwitch::Run(const std::vector<ETraduzivel*>& list) {
    for (const ETraduzivel* object : list) {
        if (IsXdata(*object)) ++strings[SharedKey(*object)];
    }
    // Every reference to a block shows its texts, which are switched once.
    std::unordered_set<std::u16string> inBlocks;
    for (ETraduzivel* object : list) {
        if (IsBlockText(*object) && !inBlocks.insert(object->GetChave()).second) continue;
        ++objects;
        Switch(*object);
    }
}

RecordedTexts::Texts* LanguageSwitch::RecordOf(const ETraduzivel& object) {
    RecordedTexts::Texts* texts = recorded.Find(object.GetChave());
    if (!texts || texts->known) return texts;
    *texts = {};
    texts->known = true;
    if (const auto record = change.RegistroNoDestino(object)) {
        texts->to = record->texto;
        texts->from = traducaoTQ::TextoRegistrado(*record->doObjeto, from.key);
    }
    return texts;
}

void LanguageSwitch::Switch(ETraduzivel& object) {
    RecordedTexts::Texts* const record = RecordOf(object);
    const TQString& before = *object.GetTexto();
    const auto remark = [&](std::string reason) { Remark(object, before, std::move(reason)); };
    if (!record || !record->to || traducaoTQ::NadaDiz(*record->to)) {
        return remark("has no record in " + to.name + " and keeps its text");
    }
    const bool asRecorded = record->from == before;
    if (IsShared(object)) {
        if (!asRecorded) {
            return remark(
                "shares one record with another string of its object, and keeps its text");
        }
        if (!HasNameOfItsOwn(object)) {
            return remark("has the name of another string of its object, and keeps its text");
        }
    }
    if (record->from && !asRecorded) {
        remark("was edited since it was recorded; its record in " + from.name + " said " +
               Quoted(*record->from));
    }
    std::optional<traducaoTQ::ETextoTrad> inBlock;
    if (IsBlockText(object)) inBlock.emplace(before, object.GetChave());
    ETraduzivel& place = inBlock ? *inBlock : object;
    try {
        TryBack(object, place, before, *record->to);
        Apply(place, *record, asRecorded);
    } catch (const OdError& error) {
        if (error.code() != eStringTooLong) throw;
        return remark("keeps its text: " + error.description().narrowText());
    }
    texts.push_back({HandleOf(object), &before, &*record->to, IsXdata(object)});
}

void LanguageSwitch::Apply(ETraduzivel& place, RecordedTexts::Texts& record, bool asRecorded) {
    if (asRecorded) return place.SetTexto(*record.to);
    change.Trocar(place);
    record.from = *place.GetTexto();
}

// Whatever a place says in between, the way back leaves in it what setting the text of now leaves:
// so that is done before the new text is set. A place that is blank in between is not found again.
void LanguageSwitch::TryBack(const ETraduzivel& object, ETraduzivel& place, const TQString& before,
                             const TQString& after) {
    if (text::TrimLeft(after).empty()) {
        return Remark(object, before, "would be blank in " + to.name + " and not be found again");
    }
    const dxf::RecordIndex index = store.FindHandle(HandleOf(object));
    if (index == dxf::kNoRecord) return;
    was.assign(store.Bytes(index));
    place.SetTexto(before);
    if (store.Bytes(index) == was) return;
    const std::u16string now = Difference(store, was, store.Bytes(index));
    if (!now.empty()) Remark(object, before, "would come back as " + Quoted(now));
}

}  // namespace cli
