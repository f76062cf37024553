// A translatable: one place in a drawing that holds one piece of text. It remembers where the text
// stands and what it was when read, and holds no translation state.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/drawing/DbObjectId.h"
#include "translator/cad/TQString.h"

namespace traducaoTQ {

inline constexpr char16_t VRN_TQ_WIRE[] = u"VRN_TQ_WIRE";
inline constexpr char16_t VRN_TQ_ATT_VIRTUAL[] = u"VRN_TQ_ATT_VIRTUAL";

// Separates the fields of a string in the xdata of either application.
inline constexpr char16_t SEPARADOR_CAMPOS[] = u"\f";

// Bits, so that a set of kinds can be one mask.
enum tipoTraduzivel : uint32_t {
    TipoAtributo = 1,
    TipoDefAtributo = 2,
    TipoTexto = 4,
    TipoFio = 8,
    TipoBlocoTexto = 16,
    TipoAtributoVirtual = 32
};

// "attribute", "attribute-definition", "text", "wire", "block-text", "virtual-attribute"; "unknown"
// for any other value.
std::string_view NomeTipo(uint32_t tipo);

// A text that is empty or one blank: a place or a record with it counts as one without.
bool NadaDiz(std::u16string_view texto);

// Every SetTexto writes into the current database, in memory, the text as it stands. A place that
// is missing, erased or of another class is passed over in silence unless the class says otherwise.
class ETraduzivel {
  public:
    virtual ~ETraduzivel();
    ETraduzivel(const ETraduzivel&) = delete;
    ETraduzivel& operator=(const ETraduzivel&) = delete;

    // The text as it was read; null for a place whose text is empty or one blank.
    virtual const TQString* GetTexto() const;
    virtual void SetTexto(TQString novo);
    virtual uint32_t GetTipo() const;

    // Gives the text away, where somebody else holds it: GetTexto gives null from then on. Not for
    // the texts of blocks, which are found by it.
    TQString SoltarTexto();

    // The key of the place: the object's handle in hexadecimal; of a virtual attribute the handle,
    // "_" and the attribute's name.
    const TQString& GetChave() const { return chave; }

  protected:
    ETraduzivel(uint32_t tipo, TQString texto, TQString chave);

    uint32_t tipo;
    bool temTexto = false;  // while it has none GetTexto gives null
    TQString texto;
    TQString chave;
};

// An attribute of a block reference. SetTexto raises OdError_NotThatKindOfClass when the handle
// names an object of another class.
class EAtributoTrad : public ETraduzivel {
  public:
    EAtributoTrad(TQString texto, TQString chave);
    ~EAtributoTrad() override;
    void SetTexto(TQString novo) override;
};

// An attribute definition in a block. It can be read and is never written.
class EDefAtributoTrad : public ETraduzivel {
  public:
    EDefAtributoTrad(TQString tag, TQString prompt, TQString texto, TQString chave);
    ~EDefAtributoTrad() override;
    const TQString& GetTag() const { return tag; }
    const TQString& GetPrompt() const { return prompt; }

  private:
    TQString tag;
    TQString prompt;
};

// A text or an mtext. The text of an mtext is its raw contents, formatting codes included.
class ETextoTrad : public ETraduzivel {
  public:
    ETextoTrad(TQString texto, TQString chave);
    ~ETextoTrad() override;
    void SetTexto(TQString novo) override;
};

// One string in the xdata of a wire.
class EFioXdataTrad : public ETraduzivel {
  public:
    EFioXdataTrad(TQString texto, TQString fio, TQString chave);
    ~EFioXdataTrad() override;
    void SetTexto(TQString novo) override;

  private:
    TQString reservado;
    TQString fio;
};

// A text in a block definition, which all references of the block share. SetTexto changes the first
// entity that bears exactly GetTexto(), and takes the new text over as its own also when there is
// none. It raises OdError_NotThatKindOfClass when the block id names an object of another class.
class EBlocoTextoTrad : public ETraduzivel {
  public:
    EBlocoTextoTrad(TQString texto, TQString chave, OdDbObjectId blocoId);
    ~EBlocoTextoTrad() override;
    void SetTexto(TQString novo) override;

  private:
    OdDbObjectId blocoId;
};

// One string in the xdata of an object of the virtual schema dictionary.
class EAtributoVirtualTrad : public EAtributoTrad {
  public:
    EAtributoVirtualTrad(TQString texto, TQString handle, TQString nome, TQString cauda);
    ~EAtributoVirtualTrad() override;
    void SetTexto(TQString novo) override;

  private:
    TQString nome;
    TQString cauda;
};

}  // namespace traducaoTQ
