// Construction, destruction and face of the translatables.
#include "translator/engine/ETraduzivel.h"

#include <utility>

namespace traducaoTQ {

std::string_view NomeTipo(uint32_t tipo) {
    switch (tipo) {
        case TipoAtributo:
            return "attribute";
        case TipoDefAtributo:
            return "attribute-definition";
        case TipoTexto:
            return "text";
        case TipoFio:
            return "wire";
        case TipoBlocoTexto:
            return "block-text";
        case TipoAtributoVirtual:
            return "virtual-attribute";
        default:
            return "unknown";
    }
}

bool NadaDiz(std::u16string_view texto) { return texto.empty() || texto == u" "; }

ETraduzivel::ETraduzivel(uint32_t tipo, TQString novoTexto, TQString novaChave)
    : tipo(tipo), chave(std::move(novaChave)) {
    temTexto = !NadaDiz(novoTexto);
    if (temTexto) texto = std::move(novoTexto);
}

ETraduzivel::~ETraduzivel() = default;

const TQString* ETraduzivel::GetTexto() const { return temTexto ? &texto : nullptr; }

void ETraduzivel::SetTexto(TQString) {}

uint32_t ETraduzivel::GetTipo() const { return tipo; }

TQString ETraduzivel::SoltarTexto() {
    temTexto = false;
    return std::exchange(texto, TQString());
}

EAtributoTrad::EAtributoTrad(TQString texto, TQString chave)
    : ETraduzivel(TipoAtributo, std::move(texto), std::move(chave)) {}

EAtributoTrad::~EAtributoTrad() = default;

EDefAtributoTrad::EDefAtributoTrad(TQString tag, TQString prompt, TQString texto, TQString chave)
    : ETraduzivel(TipoDefAtributo, std::move(texto), std::move(chave)),
      tag(std::move(tag)),
      prompt(std::move(prompt)) {}

EDefAtributoTrad::~EDefAtributoTrad() = default;

ETextoTrad::ETextoTrad(TQString texto, TQString chave)
    : ETraduzivel(TipoTexto, std::move(texto), std::move(chave)) {}

ETextoTrad::~ETextoTrad() = default;

EFioXdataTrad::EFioXdataTrad(TQString texto, TQString fio, TQString chave)
    : ETraduzivel(TipoFio, std::move(texto), std::move(chave)), fio(std::move(fio)) {}

EFioXdataTrad::~EFioXdataTrad() = default;

EBlocoTextoTrad::EBlocoTextoTrad(TQString texto, TQString chave, OdDbObjectId blocoId)
    : ETraduzivel(TipoBlocoTexto, std::move(texto), std::move(chave)), blocoId(blocoId) {}

EBlocoTextoTrad::~EBlocoTextoTrad() = default;

EAtributoVirtualTrad::EAtributoVirtualTrad(TQString texto, TQString handle, TQString nome,
                                           TQString cauda)
    : EAtributoTrad(std::move(texto), handle + u"_" + nome),
      nome(std::move(nome)),
      cauda(std::move(cauda)) {
    tipo = TipoAtributoVirtual;
}

EAtributoVirtualTrad::~EAtributoVirtualTrad() = default;

}  // namespace traducaoTQ
