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
        if (i < before.size() && before[i] == now[i]) continue;
        // Of a string of extended data the text is what stands behind its name.
        const size_t name = now[i].find(traducaoTQ::SEPARADOR_CAMPOS[0]);
        return name == now[i].npos ? now[i] : now[i].substr(name + 1);
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
    objects = SwitchAll(*list, change, from, [&](const ETraduzivel& object, const TQString& before,
                                       const TQString& after) {
        texts.push_back({object.GetTipo(), object.GetChave(), HandleOf(object), before, after});
    }, [&](const ETraduzivel& object, std::string reason) {
        Remark(object.GetTipo(), object.GetChave(), *object.GetTexto(), std::move(reason));
    });
}

size_t LanguageSwitch::SwitchAll(const std::vector<ETraduzivel*>& list, TrocaDeTextos& change,
                               const SwitchLanguage& source, const OnSwitched& onSwitched,
                               const OnRemark& onRemark) {
    std::unordered_map<std::u16string, int> sharers;  // strings of an object, by its key
    for (const ETraduzivel* object : list) {
        if (IsXdata(*object)) ++sharers[object->GetChave()];
    }
    FirstOfBlock first;
    size_t count = 0;
    for (ETraduzivel* object : list) {
        if (!first.Is(*object)) continue;
        ++count;
        const bool shared = IsXdata(*object) && sharers[object->GetChave()] > 1;
        const auto record = change.RegistroNoDestino(*object);
        const TQString before = *object->GetTexto();
        if (!record) {
            onRemark(*object, "has no record in " + to.name + " and keeps its text");
            continue;
        }
        const auto recorded = traducaoTQ::TextoRegistrado(*record->doObjeto, source.key);
        const bool asRecorded = recorded && *recorded == before;
        if (shared && !asRecorded) {
            onRemark(*object, "shares one record with another string of its object, and keeps its text");
            continue;
        }
        if (recorded && !asRecorded) {
            onRemark(*object, "was edited since it was recorded; its record in " + source.name +
                                  " said " + Quoted(*recorded));
        }
        try {
            Apply(change, *object, *record, asRecorded);
            onSwitched(*object, before, record->texto);
        } catch (const OdError& error) {
            if (error.code() != eStringTooLong) throw;
            onRemark(*object, "keeps its text: " + error.description().narrowText());
        }
    }
    return count;
}

// A text in a block is written by its handle: what it says may stand in the block twice. A record
// that says already what the object said stays as it is.
void LanguageSwitch::Apply(TrocaDeTextos& change, ETraduzivel& object,
                           const TrocaDeTextos::Registro& record, bool asRecorded) {
    traducaoTQ::ETextoTrad inBlock(*object.GetTexto(), object.GetChave());
    ETraduzivel& place = IsBlockText(object) ? inBlock : object;
    if (asRecorded) return place.SetTexto(record.texto);
    change.Aplicar(place, record);
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
    SwitchAll(*list, change, to, [](const auto&...) {}, [](const auto&...) {});
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
