// The strings that wires and virtual attributes carry in their xdata.
#include "translator/engine/CamposXdata.h"

#include <algorithm>

#include "translator/cad/TQStringList.h"

namespace traducaoTQ {

std::vector<OdResBufPtr> EntradasVirtuais(const OdResBufPtr& cadeia) {
    std::vector<OdResBufPtr> entradas;
    if (cadeia.isNull()) return entradas;
    for (OdResBufPtr entrada = cadeia->next(); !entrada.isNull(); entrada = entrada->next()) {
        if (entrada->restype() == OdResBuf::kDxfXdAsciiString) entradas.push_back(entrada);
    }
    return entradas;
}

CamposFio LerCamposFio(std::u16string_view entrada) {
    const auto campo = [&entrada] {
        entrada.remove_prefix(
            std::min(entrada.find_first_not_of(SEPARADOR_CAMPOS), entrada.size()));
        const std::u16string_view tomado = entrada.substr(0, entrada.find(SEPARADOR_CAMPOS));
        entrada.remove_prefix(tomado.size());
        return tomado;
    };
    const std::u16string_view fio = campo();
    return {fio, campo()};
}

TQString JuntarCamposFio(const CamposFio& campos) {
    TQString entrada;
    entrada.reserve(campos.fio.size() + campos.texto.size() + 1);
    entrada.append(campos.fio).append(SEPARADOR_CAMPOS).append(campos.texto);
    return entrada;
}

std::optional<CamposVirtuais> LerCamposVirtuais(TQString entrada) {
    // An empty text, two separators side by side, is to count as a field.
    entrada.Replace(u"\f\f", u"\f \f");
    const TQStringList campos = entrada.Tokenize(SEPARADOR_CAMPOS);
    if (campos.size() < 3) return std::nullopt;
    return CamposVirtuais{campos.at(0), campos.at(1), campos.at(2)};
}

TQString JuntarCamposVirtuais(const CamposVirtuais& campos) {
    return campos.nome + SEPARADOR_CAMPOS + campos.texto + SEPARADOR_CAMPOS + campos.cauda;
}

}  // namespace traducaoTQ
