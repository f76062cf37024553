// Replacing the definition of a block by another drawing, its references staying what they are.
#include <cstdlib>

#include "platform/drawing/DbBlockReference.h"
#include "platform/drawing/DbBlockTable.h"
#include "platform/drawing/DbDatabase.h"
#include "platform/drawing/DbIdMapping.h"
#include "platform/kernel/MxDocument.h"
#include "platform/kernel/MxLispEngine.h"
#include "platform/kernel/MxSystemServices.h"
#include "translator/cad/CEAtributo.h"
#include "translator/cad/CICad.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/cad/Guarded.h"

namespace tq {

namespace {

constexpr char16_t RedefinirBlocoNome[] = u"tq::CICad::RedefinirBloco";
constexpr char16_t PREFIXO_TEMPORARIO[] = u"TQ_TMP_";
constexpr int32_t MENSAGEM_CAMADAS = 17;
constexpr int32_t MENSAGEM_REFERENCIA = 18;
constexpr int SEM_RESTRICAO = 64;  // share mode: deny none

OdDbBlockTablePtr TabelaDeBlocos(OdDbDatabase* desenho) {
    return desenho->getBlockTableId().openObject();
}

std::vector<OdDbObjectId> Entidades(const OdDbBlockTableRecord& bloco, bool ordenadas) {
    std::vector<OdDbObjectId> ids;
    for (OdDbObjectIteratorPtr percurso = bloco.newIterator(true, true, ordenadas);
         !percurso->done(); percurso->step()) {
        ids.push_back(percurso->objectId());
    }
    return ids;
}

void ApagarTodas(const std::vector<OdDbObjectId>& ids) {
    for (const OdDbObjectId& id : ids) id.safeOpenObject(OdDb::kForWrite)->erase();
}

// Moves the block so that its origin comes to lie at (0, 0, 0).
void Normalizar(OdDbBlockTableRecord& bloco) {
    const auto movimento = OdGeMatrix3d::translation(bloco.origin().asVector() * -1.0);
    for (const OdDbObjectId& id : Entidades(bloco, true)) {
        const OdDbEntityPtr entidade = id.safeOpenObject(OdDb::kForWrite);
        entidade->transformBy(movimento);
    }
    bloco.setOrigin(OdGePoint3d());
}

TQString NomeTemporario(OdDbDatabase* desenho) {
    const OdDbBlockTablePtr tabela = TabelaDeBlocos(desenho);
    TQString nome;
    do {
        nome = TQString(PREFIXO_TEMPORARIO) + TQString(std::rand(), 0);
    } while (tabela->has(nome));
    return nome;
}

// The content of one block goes into the other, emptied one; the first is erased.
void Transferir(OdDbDatabase* desenho, OdDbObjectId temporarioId, OdDbBlockTableRecord& bloco) {
    bloco.setOrigin(OdGePoint3d());
    ApagarTodas(Entidades(bloco, false));
    const OdDbBlockTableRecordPtr temporario = temporarioId.safeOpenObject(OdDb::kForWrite);
    const std::vector<OdDbObjectId> entidades = Entidades(*temporario, true);
    OdDbObjectIdArray ids;
    for (const OdDbObjectId& id : entidades) ids.append(id);
    OdDbIdMappingPtr mapa = OdDbIdMapping::createObject();
    mapa->setDestDb(desenho);
    desenho->deepCloneObjects(ids, bloco.objectId(), *mapa, false);
    ApagarTodas(entidades);
    temporario->erase();
}

// The caller of SearchAttributes owns list and records.
struct ListaLida {
    ~ListaLida() {
        for (int i = 0; lista && i < lista->GetSize(); ++i) delete (*lista)[i];
        delete lista;
    }
    CEListaAtributos* lista = nullptr;
};

// The attributes are made anew from the definitions, and those whose tag survives get their text.
void RefazerReferencia(OdDbObjectId id, OdDbObjectId blocoId) {
    CICad cad;
    const OdDbEntityPtr entidade = id.safeOpenObject(OdDb::kForWrite);
    const auto referencia = OdDbBlockReference::cast(entidade);
    ListaLida lidos;
    cad.SearchAttributes(referencia, &lidos.lista, true, false, u"");
    if (!referencia.isNull() && lidos.lista) {
        for (int i = 0; i < lidos.lista->GetSize(); ++i) {
            (*lidos.lista)[i]->id.safeOpenObject(OdDb::kForWrite)->erase();
        }
        cad.CriarAtributos(blocoId, referencia);
        cad.AtualizarAtributos(referencia, lidos.lista, true, nullptr);
    }
    entidade->assertWriteEnabled(true, true);
    entidade->recordGraphicsModified(true);
}

bool ReferenciaProibida(const OdDbObjectPtr& entidade) {
    const auto referencia = OdDbBlockReference::cast(entidade);
    if (referencia.isNull()) return false;
    const auto bloco = OdDbBlockTableRecord::cast(SafeOpen(referencia->blockTableRecord()));
    return bloco.isNull() || !bloco->isAnonymous();
}

void Imprimir(const TQString& mensagem, const TQString& bloco, TQString caminho) {
    caminho.Replace(u"\\\\", u"\\");
    caminho.Replace(u"//", u"/");
    CMxDocument* documento = ACTIVE_DOCUMENT();
    CMxLispEngine* lisp = documento ? documento->GetLispEngine() : nullptr;
    if (!lisp) return;
    const TQString linha = u"\n" + mensagem + bloco + u" = " + caminho + u"\n";
    lisp->PrintText(linha.c_str());
}

}  // namespace

bool CICad::ExisteBloco(const TQString& nome, OdDbObjectId& id, OdDbDatabase* desenho) {
    return Guarded(u"tq::CICad::ExisteBloco", [&] {
        if (!desenho) return false;
        const OdDbObjectId achado = TabelaDeBlocos(desenho)->getAt(nome);
        if (!achado.isValid()) return false;
        id = achado;
        return true;
    });
}

bool CICad::RedefinirBloco(OdDbDatabasePtr origem, const TQString& nome) {
    return Guarded(RedefinirBlocoNome, [&] {
        OdDbDatabase* desenho = CurrentDatabase();
        if (!desenho) return false;
        OdDbObjectId blocoId;
        if (!ExisteBloco(nome, blocoId, desenho)) {
            if (origem.isNull()) return true;
            blocoId = desenho->insert(nome, origem, true);
            if (!blocoId.isValid()) return true;
            const OdDbBlockTableRecordPtr novo = blocoId.safeOpenObject(OdDb::kForWrite);
            Normalizar(*novo);
            return true;
        }
        const TQString temporario = NomeTemporario(desenho);
        RedefinirBloco(origem, temporario);
        OdDbObjectId temporarioId;
        if (!ExisteBloco(temporario, temporarioId, desenho)) return false;
        const OdDbBlockTableRecordPtr bloco = blocoId.safeOpenObject(OdDb::kForWrite);
        Transferir(desenho, temporarioId, *bloco);
        OdDbObjectIdArray referencias;
        bloco->getBlockReferenceIds(referencias, true, false);
        for (unsigned i = 0; i < referencias.size(); ++i) {
            RefazerReferencia(referencias[i], blocoId);
        }
        return true;
    });
}

bool CICad::RedefinirBloco(const TQString& caminho, const TQString& nome) {
    return Guarded(RedefinirBlocoNome, [&] {
        const OdDbDatabasePtr origem = GetMxSystemServices()->GetHostAppServices()->readFile(
            caminho, true, false, SEM_RESTRICAO, OdString());
        if (!canInsert(origem, nome, caminho)) return false;
        return RedefinirBloco(origem, nome);
    });
}

bool CICad::canInsert(OdDbDatabasePtr origem, const TQString& nome, const TQString& caminho) {
    return Guarded(u"tq::CICad::canInsert", [&] {
        if (origem.isNull()) return false;
        if (GetLayers(origem).size() > 1) {
            Imprimir(GetMensagemINC(MENSAGEM_CAMADAS), nome, caminho);
            return false;
        }
        const auto modelo = OdDbBlockTableRecord::cast(SafeOpen(origem->getModelSpaceId()));
        if (modelo.isNull()) return false;
        for (OdDbObjectIteratorPtr percurso = modelo->newIterator(); !percurso->done();
             percurso->step()) {
            if (!ReferenciaProibida(percurso->entity())) continue;
            Imprimir(GetMensagemINC(MENSAGEM_REFERENCIA), nome, caminho);
            return false;
        }
        return true;
    });
}

}  // namespace tq
