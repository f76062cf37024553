// The language switch of the command line, and its trial.
#include "apps/cli/LanguageSwitch.h"

#include <unordered_map>
#include <unordered_set>

#include "apps/cli/CertificateItems.h"
#include "apps/cli/Output.h"
#include "apps/cli/ReadBack.h"
#include "platform/drawing/OdError.h"

namespace cli {

namespace {

using traducaoTQ::ETraduzivel;
using traducaoTQ::ListaTraduziveis;
using traducaoTQ::TrocaDeTextos;

// Every reference to a block shows its texts, which are switched once.
class FirstOfBlock {
  public:
    bool Is(const ETraduzivel& object) {
        return !IsBlockText(object) || keys.insert(object.GetChave()).second;
    }

  private:
    std::unordered_set<std::u16string> keys;
};

// What a text says in the bytes of a record, and where: the values of its groups, decoded.
std::vector<std::u16string> Values(const dxf::Store& store, std::string_view bytes, size_t begin) {
    RawRecord record;
    std::vector<std::u16string> values;
    ReadRecord(bytes, begin, GroupFormatOf(store.Original(), store.FileFormat()), record);
    for (const Item& item : record.items) values.push_back(store.Codec().Decode(item.value));
    return values;
}

// The first value of the record that is another one now than in the file; empty for none.
std::u16string Difference(const dxf::Store& store, dxf::RecordIndex index) {
    const auto before = Values(store, store.Original(), store.At(index).offset);
    const auto now = Values(store, store.Bytes(index), 0);
    for (size_t i = 0; i < now.size(); ++i) {
        if (i >= before.size() || before[i] != now[i]) return now[i];
    }
    return {};
}

std::string Quoted(std::u16string_view text) { return "\"" + Escaped(Utf8(text)) + "\""; }

}  // namespace

LanguageSwitch::LanguageSwitch(OdDbDatabase& drawing, ScanDrawing scan, SwitchLanguage from,
                               SwitchLanguage to)
    : drawing(drawing), scan(std::move(scan)), from(std::move(from)), to(std::move(to)) {}

void LanguageSwitch::Remark(uint32_t kind, const TQString& key, const TQString& text,
                            std::string reason) {
    remarks.push_back({std::string(traducaoTQ::NomeTipo(kind)), Utf8(key), Utf8(text),
                       std::move(reason)});
}

void LanguageSwitch::Run() {
    const ListaTraduziveis list = scan();
    TrocaDeTextos change(from.key, to.key);
    FirstOfBlock first;
    const ETraduzivel* former = nullptr;
    for (ETraduzivel* object : *list) {
        if (!first.Is(*object)) continue;
        ++objects;
        // The strings of one wire stand together in the list.
        if (former && IsXdata(*object) && former->GetChave() == object->GetChave()) {
            Remark(object->GetTipo(), object->GetChave(), *object->GetTexto(),
                   "shares its record with another text of the same object");
        }
        Switch(change, *object);
        former = object;
    }
}

void LanguageSwitch::Switch(TrocaDeTextos& change, ETraduzivel& object) {
    const TQString before = *object.GetTexto();
    const auto remark = [&](std::string reason) {
        Remark(object.GetTipo(), object.GetChave(), before, std::move(reason));
    };
    const auto record = change.RegistroNoDestino(object);
    if (!record) return remark("has no record in " + to.name + " and keeps its text");
    const auto recorded = traducaoTQ::TextoRegistrado(*record->doObjeto, from.key);
    if (recorded && *recorded != before) {
        remark("was edited since it was recorded; its record in " + from.name + " said " +
               Quoted(*recorded));
    }
    try {
        Apply(change, object, *record);
    } catch (const OdError& error) {
        if (error.code() != eStringTooLong) throw;
        return remark("keeps its text: " + error.description().narrowText());
    }
    texts.push_back({object.GetTipo(), object.GetChave(), HandleOf(object), before, record->texto});
}

// A text in a block is written by its handle: what it says may stand in the block twice.
void LanguageSwitch::Apply(TrocaDeTextos& change, ETraduzivel& object,
                           const TrocaDeTextos::Registro& record) {
    if (!IsBlockText(object)) return change.Aplicar(object, record);
    traducaoTQ::ETextoTrad text(*object.GetTexto(), object.GetChave());
    change.Aplicar(text, record);
}

// Of two strings of one wire under one name the second one is never reached.
void LanguageSwitch::DropLost(const ListaTraduziveis& after) {
    std::unordered_map<std::u16string, std::vector<TQString>> held;  // by key
    for (const ETraduzivel* object : *after) {
        if (IsXdata(*object)) held[object->GetChave()].push_back(*object->GetTexto());
    }
    std::erase_if(texts, [&](const Text& text) {
        if (text.kind != traducaoTQ::TipoFio && text.kind != traducaoTQ::TipoAtributoVirtual) {
            return false;
        }
        TQString written = text.after;
        written.Trim();
        auto& found = held[text.key];
        const auto place = std::find(found.begin(), found.end(), written);
        if (place != found.end()) {
            found.erase(place);
            return false;
        }
        Remark(text.kind, text.key, text.before,
               "keeps its text: another string of the object has the same first field");
        return true;
    });
}

void LanguageSwitch::TryBack() {
    const ListaTraduziveis list = scan();
    DropLost(list);
    drawing.startUndoRecord(u"switch back");
    TrocaDeTextos change(to.key, from.key);
    FirstOfBlock first;
    for (ETraduzivel* object : *list) {
        if (!first.Is(*object)) continue;
        const auto record = change.RegistroNoDestino(*object);
        if (record) Apply(change, *object, *record);
    }
    const dxf::Store& store = drawing.store();
    for (const Text& text : texts) Compare(text, store);
    drawing.endUndoRecord();
    if (drawing.hasUndo()) drawing.undo();
}

void LanguageSwitch::Compare(const Text& text, const dxf::Store& store) {
    const dxf::RecordIndex index = store.FindHandle(text.handle);
    if (index == dxf::kNoRecord || !(store.At(index).flags & dxf::kOverlaid)) return;
    const std::u16string now = Difference(store, index);
    if (now.empty()) return;
    Remark(text.kind, text.key, text.before, "would come back as " + Quoted(now));
}

std::vector<ExpectedText> LanguageSwitch::Expected() const {
    std::vector<ExpectedText> expected;
    expected.reserve(texts.size());
    for (const Text& text : texts) {
        const bool xdata =
            text.kind == traducaoTQ::TipoFio || text.kind == traducaoTQ::TipoAtributoVirtual;
        expected.push_back({text.handle, xdata, text.before, text.after});
    }
    return expected;
}

}  // namespace cli
