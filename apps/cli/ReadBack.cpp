// Reading of written texts from the records of the drawing.
#include "apps/cli/ReadBack.h"

#include "platform/drawing/DbHandle.h"
#include "platform/drawing/DbText.h"
#include "translator/cad/DrawingHelpers.h"

namespace cli {

using traducaoTQ::ETraduzivel;

bool IsXdata(const ETraduzivel& object) {
    return object.GetTipo() == traducaoTQ::TipoFio ||
           object.GetTipo() == traducaoTQ::TipoAtributoVirtual;
}

bool IsBlockText(const ETraduzivel& object) {
    return object.GetTipo() == traducaoTQ::TipoBlocoTexto;
}

uint64_t HandleOf(const ETraduzivel& object) { return OdDbHandle(object.GetChave().c_str()); }

ReadBack::ReadBack(const dxf::Store& store, const ETraduzivel& object, const structExpressao& line)
    : store(store), object(object), line(line) {
    if (!IsXdata(object)) return;
    field = store.Codec().Encode(traducaoTQ::SEPARADOR_CAMPOS + line.traducao);
    fieldsBefore = CountFields();
}

size_t ReadBack::CountFields() const {
    const dxf::RecordIndex index = store.FindHandle(HandleOf(object));
    if (index == dxf::kNoRecord || store.At(index).xdata == 0) return 0;
    const std::string separator = store.Codec().Encode(traducaoTQ::SEPARADOR_CAMPOS);
    size_t count = 0;
    dxf::GroupReader reader = store.Groups(index, store.At(index).xdata);
    for (dxf::Group group; reader.Next(group);) {
        if (group.code != 1000) continue;
        const size_t at = group.value.find(field);
        if (at == std::string_view::npos) continue;
        const std::string_view rest = group.value.substr(at + field.size());
        count += rest.empty() || rest.starts_with(separator);
    }
    return count;
}

bool ReadBack::BlockTextHolds() const {
    const OdDbTextPtr text = OdDbText::cast(SafeOpen(IdFromHandle(HandleOf(object))));
    return !text.isNull() && text->textString().text() == line.traducao;
}

// A text that is to stay the same holds in any case.
bool ReadBack::Holds() const {
    if (line.traducao == line.original) return true;
    if (IsBlockText(object)) return BlockTextHolds();
    return !IsXdata(object) || CountFields() > fieldsBefore;
}

}  // namespace cli
