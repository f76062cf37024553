// The strings that wires and virtual attributes carry in their xdata, as the scan reads them and
// SetTexto finds them again. Fields stand between form feeds; runs of these count as one.
#pragma once

#include <optional>
#include <vector>

#include "platform/drawing/ResBuf.h"
#include "translator/cad/TQString.h"

namespace traducaoTQ {

// The entries of a wire's chain that bear strings: all behind the first three, the application's
// own entry counted, of whatever type.
std::vector<OdResBufPtr> EntradasFio(const OdResBufPtr& cadeia);

// The entries of a virtual attribute's chain that bear strings: those of type 1000 behind the
// first.
std::vector<OdResBufPtr> EntradasVirtuais(const OdResBufPtr& cadeia);

struct CamposFio {
    TQString fio;
    TQString texto;  // empty where the string has one field only
};
CamposFio LerCamposFio(const TQString& entrada);
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
