// The strings that wires and virtual attributes carry in their xdata, as the scan reads them and
// SetTexto finds them again. Fields stand between form feeds; runs of these count as one.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/drawing/DbXDataIterator.h"
#include "translator/engine/ETraduzivel.h"

namespace traducaoTQ {

// Calls visita(OdDbXDataIterator&) for the entries of a wire's data that bear strings, until it
// returns false: all behind the first three, the application's own entry counted, of whatever type.
template <class Visita>
void PercorrerFio(const OdDbObject& fio, Visita visita) {
    static const OdString aplicacao(VRN_TQ_WIRE);
    OdDbXDataIterator entrada(fio, aplicacao);
    for (int posicao = 0; !entrada.done(); entrada.next()) {
        if (posicao++ >= 3 && !visita(entrada)) return;
    }
}

// The entries of a virtual attribute's chain that bear strings: those of type 1000 behind the
// first.
std::vector<OdResBufPtr> EntradasVirtuais(const OdResBufPtr& cadeia);

// Views of the entry's string.
struct CamposFio {
    std::u16string_view fio;
    std::u16string_view texto;  // empty where the string has one field only
};
CamposFio LerCamposFio(std::u16string_view entrada);
TQString JuntarCamposFio(const CamposFio& campos);

struct CamposVirtuais {
    TQString nome;
    TQString texto;  // a blank where the field is empty
    TQString cauda;
};
// None for a string of fewer than three fields.
std::optional<CamposVirtuais> LerCamposVirtuais(TQString entrada);
TQString JuntarCamposVirtuais(const CamposVirtuais& campos);

}  // namespace traducaoTQ
