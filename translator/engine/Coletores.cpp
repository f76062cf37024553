// The collectors of the scan: what is found on a page, in an object, in the virtual schema.
#include "translator/engine/Coletores.h"

#include "platform/drawing/DbDictionary.h"
#include "platform/drawing/DbMText.h"
#include "platform/kernel/KVServices.h"
#include "platform/kernel/MxSystemServices.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/cad/Guarded.h"
#include "translator/engine/CamposXdata.h"
#include "translator/engine/ITradCad.h"
#include "translator/engine/TextosDeBloco.h"

namespace traducaoTQ {

namespace {

constexpr char16_t ESQUEMA_VIRTUAL[] = u"ESQ_VIRTUAL_TQ";

TQString Aparado(OdString texto) {
    texto.trimLeft().trimRight();
    return texto;
}

TQString ChaveDe(const OdDbObject& objeto) { return objeto.objectId().getHandle(); }

OdDbBlockTableRecordPtr EspacoModelo() {
    OdDbDatabase* desenho = CurrentDatabase();
    return SafeOpen(desenho ? desenho->getModelSpaceId() : OdDbObjectId::kNull);
}

OdDbDictionaryPtr EsquemaVirtual() {
    OdDbDatabase* desenho = CurrentDatabase();
    if (!desenho) return {};
    OdDbDictionaryPtr raiz = SafeOpen(desenho->getNamedObjectsDictionaryId());
    if (raiz.isNull()) return {};
    return raiz->getAt(ESQUEMA_VIRTUAL, OdDb::kForRead);
}

void PrepararAplicacao() {
    auto projeto = GetElectricalServices()->GetProjectManager()->GetProject(ACTIVE_DOCUMENT());
    if (projeto) projeto->PrepareApplication(OdString(VRN_TQ_ATT_VIRTUAL));
}

}  // namespace

std::vector<OdDbObjectId> ITradCad::BuscarObjetosPaginas(const TQStringList& paginas) {
    std::vector<OdDbObjectId> ids;
    for (const TQString& pagina : paginas) {
        const auto daPagina = BuscarObjetosLayer(pagina);
        ids.insert(ids.end(), daPagina.begin(), daPagina.end());
    }
    return ids;
}

std::vector<OdDbObjectId> ITradCad::BuscarObjetosLayer(const TQString& camada) {
    std::vector<OdDbObjectId> ids;
    const OdDbBlockTableRecordPtr modelo = EspacoModelo();
    if (!modelo.isNull()) modelo->getEntitiesOnLayer(camada, ids);
    return ids;
}

// The only guarded operation of the scan. That it raises for whatever is no block reference is
// meant.
void ColherAtributos(ListaTraduziveis& lista, OdDbObjectId id) {
    GuardedOdError(u"traducaoTQ::ITradCad::BuscarAtributos", [&] {
        const OdDbBlockReferencePtr bloco = SafeOpen(id);
        if (bloco.isNull()) return;
        for (OdDbObjectIteratorPtr percurso = bloco->attributeIterator(); !percurso->done();
             percurso->step()) {
            const OdDbAttributePtr atributo = percurso->entity(OdDb::kForRead);
            Acrescentar<EAtributoTrad>(lista, Aparado(atributo->textString()), ChaveDe(*atributo));
        }
    });
}

ListaTraduziveis ITradCad::BuscarAtributos(OdDbObjectId id) {
    if (id.isNull()) return nullptr;
    ListaTraduziveis lista = NovaLista();
    ColherAtributos(lista, id);
    return lista;
}

void ColherTexto(ListaTraduziveis& lista, const OdDbObject& objeto) {
    if (const OdDbTextPtr texto = OdDbText::cast(&objeto); !texto.isNull()) {
        Acrescentar<ETextoTrad>(lista, Aparado(texto->textString()), ChaveDe(*texto));
    } else if (const OdDbMTextPtr mtexto = OdDbMText::cast(&objeto); !mtexto.isNull()) {
        Acrescentar<ETextoTrad>(lista, Aparado(mtexto->contents()), ChaveDe(*mtexto));
    }
}

ListaTraduziveis ITradCad::BuscarTextos(OdDbObjectId id) {
    if (id.isNull()) return nullptr;
    ListaTraduziveis lista = NovaLista();
    const OdDbObjectPtr objeto = SafeOpen(id);
    if (!objeto.isNull()) ColherTexto(lista, *objeto);
    return lista;
}

void ColherBlocoTextos(ListaTraduziveis& lista, const OdDbBlockReference& referencia) {
    const OdDbObjectId blocoId = referencia.blockTableRecord();
    const auto bloco = OdDbBlockTableRecord::cast(SafeOpen(blocoId));
    PercorrerTextos(bloco, OdDb::kForRead, [&](const OdDbTextPtr& texto) {
        Acrescentar<EBlocoTextoTrad>(lista, Aparado(texto->textString()), ChaveDe(*texto), blocoId);
        return true;
    });
}

ListaTraduziveis ITradCad::BuscarBlocoTextos(OdDbObjectId id) {
    ListaTraduziveis lista = NovaLista();
    const OdDbBlockReferencePtr referencia = OdDbBlockReference::cast(SafeOpen(id));
    if (!referencia.isNull()) ColherBlocoTextos(lista, *referencia);
    return lista;
}

ListaTraduziveis ITradCad::BuscarDefAtributos(OdDbObjectId id) {
    ListaTraduziveis lista = NovaLista();
    const OdDbBlockReferencePtr referencia = SafeOpen(id);
    if (referencia.isNull()) return lista;
    const OdDbBlockTableRecordPtr bloco = SafeOpen(referencia->blockTableRecord());
    if (bloco.isNull() || !bloco->hasAttributeDefinitions()) return lista;
    for (OdDbObjectIteratorPtr percurso = bloco->newIterator(); !percurso->done();
         percurso->step()) {
        const auto definicao = OdDbAttributeDefinition::cast(percurso->entity(OdDb::kForRead));
        if (definicao.isNull()) continue;
        Acrescentar<EDefAtributoTrad>(lista, definicao->tag(), definicao->prompt(),
                                      Aparado(definicao->textString()), ChaveDe(*definicao));
    }
    return lista;
}

ListaTraduziveis ITradCad::BuscarFiosPaginas(const TQStringList& paginas) {
    ListaTraduziveis lista = NovaLista();
    for (const TQString& pagina : paginas) JuntarA(lista, BuscarFios(pagina));
    return lista;
}

ListaTraduziveis ITradCad::BuscarFios(const TQString& camada) {
    ListaTraduziveis lista = NovaLista();
    for (const OdDbObjectId& id : BuscarObjetosLayer(camada)) {
        const OdDbPolylinePtr polilinha = OdDbPolyline::cast(SafeOpen(id));
        if (!polilinha.isNull()) ColherFios(lista, *polilinha);
    }
    return lista;
}

void ColherFios(ListaTraduziveis& lista, const OdDbPolyline& polilinha) {
    PercorrerFio(polilinha, [&](const OdDbXDataIterator& entrada) {
        const TQString lida = Aparado(entrada.getString());
        const CamposFio campos = LerCamposFio(lida);
        Acrescentar<EFioXdataTrad>(lista, std::u16string(campos.texto), std::u16string(campos.fio),
                                   ChaveDe(polilinha));
        return true;
    });
}

ListaTraduziveis ITradCad::BuscarAtributosVirtuais() {
    ListaTraduziveis lista = NovaLista();
    PrepararAplicacao();
    const OdDbDictionaryPtr esquema = EsquemaVirtual();
    if (esquema.isNull()) return lista;
    for (OdDbDictionaryIteratorPtr percurso = esquema->newIterator(OdRx::kDictSorted);
         !percurso->done(); percurso->next()) {
        const OdDbObjectPtr objeto = percurso->object();
        if (objeto.isNull()) continue;
        for (const OdResBufPtr& entrada : EntradasVirtuais(objeto->xData(VRN_TQ_ATT_VIRTUAL))) {
            auto campos = LerCamposVirtuais(entrada->getString());
            if (!campos) continue;
            campos->texto.Trim();
            Acrescentar<EAtributoVirtualTrad>(lista, campos->texto, ChaveDe(*objeto), campos->nome,
                                              campos->cauda);
        }
    }
    return lista;
}

}  // namespace traducaoTQ
