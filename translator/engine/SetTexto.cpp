// Writing a new text into the drawing, one operation per kind of place.
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbAttributeDefinition.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "platform/drawing/DbMText.h"
#include "platform/drawing/DbPolyline.h"
#include "platform/drawing/DbText.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/cad/TQStringList.h"
#include "translator/engine/CamposXdata.h"
#include "translator/engine/ETraduzivel.h"
#include "translator/engine/TextosDeBloco.h"

namespace traducaoTQ {

namespace {

OdDbObjectId IdDaChave(const TQString& chave) {
    OdDbHandle handle;
    handle = chave.c_str();
    return IdFromHandle(handle);
}

}  // namespace

void EAtributoTrad::SetTexto(TQString novo) {
    OdDbAttributePtr atributo = SafeOpen(IdDaChave(chave), OdDb::kForWrite);
    if (!atributo.isNull()) atributo->setTextString(OdString(std::move(novo)));
}

void ETextoTrad::SetTexto(TQString novo) {
    const OdDbObjectPtr objeto = SafeOpen(IdDaChave(chave), OdDb::kForWrite);
    if (OdDbTextPtr texto = OdDbText::cast(objeto); !texto.isNull()) {
        texto->setTextString(OdString(std::move(novo)));
    } else if (OdDbMTextPtr mtexto = OdDbMText::cast(objeto); !mtexto.isNull()) {
        mtexto->setContents(novo);
    }
}

void EBlocoTextoTrad::SetTexto(TQString novo) {
    // The text was trimmed by the scan and is compared as it stands: a text with outer blanks in
    // the drawing is not found and stays. This is meant.
    const OdDbBlockTableRecordPtr bloco = SafeOpen(blocoId, OdDb::kForWrite);
    if (temTexto) {
        const OdString procurado = texto;
        PercorrerTextos(bloco, OdDb::kForWrite, [&](const OdDbTextPtr& candidato) {
            if (!(candidato->textString() == procurado)) return true;
            candidato->setTextString(novo);
            return false;
        });
    }
    texto = std::move(novo);
    temTexto = true;
}

void EFioXdataTrad::SetTexto(TQString novo) {
    const OdDbPolylinePtr polilinha = OdDbPolyline::cast(SafeOpen(IdDaChave(chave)));
    if (polilinha.isNull()) return;
    PercorrerFio(*polilinha, [&](OdDbXDataIterator& entrada) {
        const OdString lida = entrada.getString();
        const CamposFio campos = LerCamposFio(lida.text());
        if (campos.fio != fio) return true;
        if (campos.texto == novo) return false;
        // Not before, so that a wire whose text is right already stays untouched.
        polilinha->upgradeOpen();
        entrada.setString(JuntarCamposFio({fio, novo}));
        return false;
    });
}

void EAtributoVirtualTrad::SetTexto(TQString novo) {
    chave = chave.Tokenize(u"_").Front() + u"_" + nome;
    // The handle ends at "_".
    const OdDbObjectPtr objeto = SafeOpen(IdDaChave(chave), OdDb::kForWrite);
    if (objeto.isNull()) return;
    const OdResBufPtr cadeia = objeto->xData(VRN_TQ_ATT_VIRTUAL);
    if (cadeia.isNull()) return;
    for (const OdResBufPtr& entrada : EntradasVirtuais(cadeia)) {
        auto campos = LerCamposVirtuais(entrada->getString());
        if (!campos || campos->nome != nome) continue;
        campos->texto = novo;
        entrada->setString(JuntarCamposVirtuais(*campos));
        break;
    }
    objeto->setXData(cadeia);
}

}  // namespace traducaoTQ
