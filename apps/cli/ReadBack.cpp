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

ReadBack::ReadBack(const dxf::Store& store, const ETraduzivel& object, uint64_t handle,
                   const structExpressao& line)
    : store(store), object(object), line(line), handle(handle) {
    if (!IsXdata(object)) return;
    record = store.FindHandle(handle);
    if (record != dxf::kNoRecord) changesBefore = store.ChangesOf(record);
}

bool ReadBack::HasChanged() const {
    return record != dxf::kNoRecord && store.ChangesOf(record) != changesBefore;
}

bool ReadBack::BlockTextHolds() const {
    const OdDbTextPtr text = OdDbText::cast(SafeOpen(IdFromHandle(handle)));
    return !text.isNull() && text->textString().text() == line.traducao;
}

// A text that is to stay the same holds in any case. A string of extended data that is found is
// changed; one that is not leaves the drawing as it was.
bool ReadBack::Holds() const {
    if (line.traducao == line.original) return true;
    if (IsBlockText(object)) return BlockTextHolds();
    return !IsXdata(object) || HasChanged();
}

}  // namespace cli
