// The strings that wires and virtual attributes carry in their xdata.
#include "translator/engine/CamposXdata.h"

#include <algorithm>
#include <string_view>

#include "translator/cad/TQStringList.h"
#include "translator/engine/ETraduzivel.h"

namespace traducaoTQ {

std::vector<OdResBufPtr> EntradasFio(const OdResBufPtr& cadeia) {
    std::vector<OdResBufPtr> entradas;
    int posicao = 0;
    for (OdResBufPtr entrada = cadeia; !entrada.isNull(); entrada = entrada->next()) {
        if (posicao++ >= 3) entradas.push_back(entrada);
    }
    return entradas;
}

std::vector<OdResBufPtr> EntradasVirtuais(const OdResBufPtr& cadeia) {
    std::vector<OdResBufPtr> entradas;
    if (cadeia.isNull()) return entradas;
    for (OdResBufPtr entrada = cadeia->next(); !entrada.isNull(); entrada = entrada->next()) {
        if (entrada->restype() == OdResBuf::kDxfXdAsciiString) entradas.push_back(entrada);
    }
    return entradas;
}

CamposFio LerCamposFio(const TQString& entrada) {
    std::u16string_view resto = entrada;
    const auto campo = [&resto] {
        resto.remove_prefix(std::min(resto.find_first_not_of(SEPARADOR_CAMPOS), resto.size()));
        const std::u16string_view tomado = resto.substr(0, resto.find(SEPARADOR_CAMPOS));
        resto.remove_prefix(tomado.size());
        return std::u16string(tomado);
    };
    TQString fio = campo();
    return {std::move(fio), campo()};
}

TQString JuntarCamposFio(const CamposFio& campos) {
    return campos.fio + SEPARADOR_CAMPOS + campos.texto;
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
