// Reading the attributes of block references, writing them back, making them from the definitions.
#include "platform/drawing/DbAttribute.h"
#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTableRecord.h"
#include "translator/cad/CEAtributo.h"
#include "translator/cad/CICad.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/cad/Guarded.h"

namespace tq {

IMPLEMENT_DYNAMIC(CEListaAtributos, CObject)

namespace {

constexpr int32_t LIDO = 0;
constexpr int32_t SEM_ATRIBUTOS = 2;

// Calls visita for each definition that is not constant, until it returns false. A null block has
// none.
template <class Visita>
void PercorrerDefinicoes(const OdDbBlockTableRecordPtr& bloco, bool ordenado, Visita visita) {
    if (bloco.isNull()) return;
    for (OdDbObjectIteratorPtr percurso = bloco->newIterator(true, true, ordenado);
         !percurso->done(); percurso->step()) {
        const auto definicao = OdDbAttributeDefinition::cast(percurso->entity());
        if (definicao.isNull() || definicao->isConstant()) continue;
        if (!visita(definicao)) return;
    }
}

OdDbAttributePtr AtributoDe(OdDbObjectIterator& percurso) {
    const auto atributo = OdDbAttribute::cast(SafeOpen(percurso.objectId()));
    return atributo.isNull() ? OdDbAttribute::cast(percurso.entity()) : atributo;
}

int32_t QuantosComTag(CEListaAtributos& lista, const TQString& tag) {
    int32_t quantos = 0;
    for (int i = 0; i < lista.GetSize(); ++i) quantos += lista[i]->tag == tag;
    return quantos;
}

void CopiarPropriedades(OdDbAttribute& atributo, const OdDbAttributeDefinition& definicao) {
    atributo.setPropertiesFrom(&definicao, true);
    atributo.setInvisible(definicao.isInvisible());
    atributo.setTag(definicao.tag());
    atributo.setHeight(definicao.height());
    atributo.setRotation(definicao.rotation());
    atributo.setTextStyle(definicao.textStyle());
    atributo.setColor(definicao.color(), true);
    atributo.setLinetype(definicao.linetype(), true);
    atributo.setLinetypeScale(definicao.linetypeScale(), true);
    atributo.setLineWeight(definicao.lineWeight(), true);
    atributo.setNormal(definicao.normal());
    atributo.setThickness(definicao.thickness());
    atributo.setTransparency(definicao.transparency(), true);
    atributo.setWidthFactor(definicao.widthFactor());
    atributo.setHorizontalMode(definicao.horizontalMode());
    atributo.setVerticalMode(definicao.verticalMode());
    atributo.setFieldLength(definicao.fieldLength());
}

OdDbAttributePtr NovoAtributo(const OdDbAttributeDefinition& definicao, const OdGeMatrix3d& lugar) {
    OdDbAttributePtr atributo = OdDbAttribute::createObject();
    CopiarPropriedades(*atributo, definicao);
    if (definicao.isMTextAttributeDefinition()) {
        const OdDbMTextPtr copia = definicao.getMTextAttributeDefinition()->clone();
        atributo->setMTextAttribute(copia);
    }
    atributo->setAttributeFromBlock(&definicao, lugar);
    return atributo;
}

}  // namespace

TQString CICad::GetPrompt(OdDbBlockTableRecordPtr bloco, const TQString& tag, int32_t ocorrencia) {
    return Guarded(u"tq::CICad::GetPrompt", [&] {
        TQString prompt = tag;
        int32_t contagem = 0;
        PercorrerDefinicoes(bloco, false, [&](const OdDbAttributeDefinitionPtr& definicao) {
            if (!(tag == definicao->tag())) return true;
            if (contagem++ != ocorrencia) return true;
            prompt = definicao->prompt();
            return false;
        });
        return prompt;
    });
}

TQString CICad::GetTextoDefault(OdDbBlockTableRecordPtr bloco, const TQString& tag) {
    TQString texto;
    PercorrerDefinicoes(bloco, false, [&](const OdDbAttributeDefinitionPtr& definicao) {
        if (!(tag == definicao->tag())) return true;
        texto = definicao->textString();
        return false;
    });
    return texto;
}

int32_t CICad::SearchAttributes(OdDbBlockReferencePtr referencia, CEListaAtributos** lugar,
                                bool comPrompts, bool valorDefault, const TQString& prefixo) {
    return Guarded(u"tq::CICad::SearchAttributes", [&] {
        *lugar = nullptr;
        if (referencia.isNull()) return SEM_ATRIBUTOS;
        const auto bloco = OdDbBlockTableRecord::cast(SafeOpen(referencia->blockTableRecord()));
        const bool prompts = comPrompts && !bloco.isNull();
        OdDbObjectIteratorPtr percurso = referencia->attributeIterator();
        if (percurso.isNull()) return SEM_ATRIBUTOS;
        auto lista = std::make_unique<CEListaAtributos>();
        std::vector<std::unique_ptr<CEAtributo>> lidos;  // until the list is complete
        for (; !percurso->done(); percurso->step()) {
            const OdDbAttributePtr atributo = AtributoDe(*percurso);
            if (atributo.isNull()) continue;
            TQString tag = atributo->tag();
            if (!prefixo.IsEmpty() && !tag.StartsWith(prefixo)) continue;
            TQString prompt;
            if (prompts) {
                prompt = GetPrompt(bloco, tag, QuantosComTag(*lista, tag));
                if (prompt.IsEmpty()) prompt = tag;
            }
            TQString texto = atributo->textString();
            tag.Trim();
            prompt.Trim();
            texto.Trim();
            if (texto.IsEmpty() && valorDefault) {
                texto = GetTextoDefault(bloco, tag);
                texto.Trim();
            }
            lidos.push_back(std::make_unique<CEAtributo>(tag, prompt, texto, atributo->objectId(),
                                                         atributo->isConstant()));
            lista->Add(lidos.back().get());
        }
        for (auto& lido : lidos) static_cast<void>(lido.release());  // the caller has them
        *lugar = lista.release();
        return LIDO;
    });
}

bool CICad::AtualizarAtributos(OdDbBlockReferencePtr referencia, CEListaAtributos* lista,
                               bool alterarFlag, int32_t* contador) {
    return Guarded(u"tq::CICad::AtualizarAtributos", [&] {
        if (referencia.isNull()) return false;
        OdDbObjectIteratorPtr percurso = referencia->attributeIterator();
        if (percurso.isNull()) return true;
        for (; !percurso->done(); percurso->step()) {
            // No match ends the walk over the records, which is meant: the last record of a tag
            // wins, and the counter counts each.
            for (int i = 0; i < lista->GetSize(); ++i) {
                const CEAtributo& registro = *(*lista)[i];
                const OdDbAttributePtr atributo = SafeOpen(percurso->objectId(), OdDb::kForWrite);
                if (!(registro.tag == atributo->tag())) continue;
                if (registro.valor == atributo->textString() &&
                    registro.constante == atributo->isConstant()) {
                    continue;
                }
                atributo->upgradeOpen();
                atributo->setTextString(registro.valor);
                // The flag was read as that of constants, which is meant: what is changed here
                // becomes visible, but for a constant attribute.
                if (alterarFlag) atributo->setInvisible(registro.constante);
                if (contador) ++*contador;
            }
        }
        return true;
    });
}

int32_t CICad::CriarAtributos(OdDbObjectId blocoId, OdDbBlockReferencePtr referencia) {
    return Guarded(u"tq::CICad::CriarAtributos", [&] {
        if (!blocoId.isValid() || referencia.isNull()) return 0;
        const OdDbBlockTableRecordPtr bloco = blocoId.openObject();
        const OdGeMatrix3d lugar = referencia->blockTransform();
        PercorrerDefinicoes(bloco, true, [&](const OdDbAttributeDefinitionPtr& definicao) {
            referencia->appendAttribute(NovoAtributo(*definicao, lugar));
            return true;
        });
        return 0;
    });
}

}  // namespace tq
