// The translation records in the drawing.
#include "translator/engine/RegistrosTraducao.h"

#include <stdexcept>
#include <unordered_set>

#include "platform/drawing/EObjString.h"
#include "translator/cad/DrawingHelpers.h"

namespace traducaoTQ {

namespace {

using structIdioma = IBDIdiomas::structIdioma;
using structTermo = IBDIdiomas::structTermo;
using structTraducoes = IBDIdiomas::structTraducoes;

// A name that others may use in the dictionary of an object; never made and never removed here.
constexpr char16_t NOME_RESERVADO[] = u"OBJ";

// Level 1, for write; null without a current drawing.
OdDbDictionaryPtr DicionarioDeRegistros(OdDbDatabase* desenho) {
    if (!desenho) return {};
    const OdDbDictionaryPtr raiz =
        SafeOpen(desenho->getNamedObjectsDictionaryId(), OdDb::kForWrite);
    if (raiz.isNull()) return {};
    return GetOrCreateDictionary(VRN_TQ_OBJS_TRADS, raiz);
}

void Gravar(const OdDbDictionaryPtr& dicionario, const RegistrosObjeto& registros) {
    for (const auto& [idioma, texto] : registros) {
        EObjStringPtr valor = EObjString::createObject();
        valor->setValue(texto);
        dicionario->setAt(idioma, valor);
    }
}

bool TemRegistro(const RegistrosObjeto& registros, const TQString& idioma) {
    for (const auto& registro : registros) {
        if (registro.first == idioma) return true;
    }
    return false;
}

void RemoverOutros(const OdDbDictionaryPtr& dicionario, const RegistrosObjeto& registros) {
    std::vector<OdString> sobras;
    for (OdDbDictionaryIteratorPtr percurso = dicionario->newIterator(OdRx::kDictSorted);
         !percurso->done(); percurso->next()) {
        const TQString nome = percurso->name();
        if (nome != NOME_RESERVADO && !TemRegistro(registros, nome)) sobras.push_back(nome);
    }
    for (const OdString& nome : sobras) dicionario->remove(nome);
}

// The handle that a key begins with, in the form in which the drawing spells it. A suffix is lost,
// so the records of a virtual attribute are not found by it. This is meant.
CString ChaveCanonica(const TQString& chave) {
    const OdDbHandle handle(chave.c_str());
    char16_t texto[17];
    IdFromHandle(handle).getHandle().getIntoAsciiBuffer(texto);
    return texto;
}

TQString TextoNoIdioma(const ETraduzivel& objeto, const RegistrosObjeto& registros,
                       const TQString& idioma, const CString& idiomaAtual) {
    if (idioma == idiomaAtual) {
        return objeto.GetTexto() ? *objeto.GetTexto() : TQString();
    }
    for (const auto& [chave, texto] : registros) {
        if (chave == idioma) return texto;
    }
    return {};
}

}  // namespace

OdSmartPtr<OdDbDictionary> GetOrCreateDictionary(CString chave, OdSmartPtr<OdDbDictionary> pai) {
    OdDbDictionaryPtr dicionario = pai->getAt(chave.GetString(), OdDb::kForWrite);
    if (!dicionario.isNull()) return dicionario;
    dicionario = OdDbDictionary::desc()->create();
    if (dicionario.isNull()) throw OdError(u"OdDbOdDbDictionaryis not loaded");
    pai->setAt(chave.GetString(), dicionario);
    return dicionario;
}

std::unique_ptr<RegistrosObjeto> ReadObjectRecords(CString chave) {
    auto registros = std::make_unique<RegistrosObjeto>();
    OdDbDatabase* desenho = CurrentDatabase();
    // A drawing that has no place for records reads as one without any; only writing raises.
    if (!desenho || !desenho->hasDictionaries()) return registros;
    const OdDbDictionaryPtr todos = DicionarioDeRegistros(desenho);
    if (todos.isNull()) return registros;
    const OdDbDictionaryPtr doObjeto = todos->getAt(chave.GetString(), OdDb::kForWrite);
    if (doObjeto.isNull()) return registros;
    for (OdDbDictionaryIteratorPtr percurso = doObjeto->newIterator(OdRx::kDictSorted);
         !percurso->done(); percurso->next()) {
        const EObjStringPtr valor = percurso->object();
        // Other programs may leave an entry whose object has gone: it holds no text.
        if (!valor.isNull()) registros->emplace_back(percurso->name(), valor->getValue());
    }
    return registros;
}

void WriteObjectRecords(TQString chave, const RegistrosObjeto& registros) {
    const OdDbDictionaryPtr todos = DicionarioDeRegistros(CurrentDatabase());
    if (todos.isNull()) return;
    const OdDbDictionaryPtr doObjeto = GetOrCreateDictionary(chave, todos);
    Gravar(doObjeto, registros);
    RemoverOutros(doObjeto, registros);
}

void SaveTermRecords(TQString chave, structTermo termo, std::vector<structIdioma> idiomas) {
    RegistrosObjeto registros;
    for (TQString& traducao : termo.translations) registros.emplace_back(u"", std::move(traducao));
    size_t proximo = 0;
    for (const structIdioma& idioma : idiomas) {
        if (idioma.use != u"1") continue;
        if (proximo >= registros.size()) throw std::out_of_range("invalid vector subscript");
        registros[proximo++].first = idioma.key;
    }
    WriteObjectRecords(chave, registros);
}

std::unique_ptr<structTraducoes> GetProjectTerms(const std::vector<ETraduzivel*>& objetos,
                                                 CString idiomaAtual) {
    auto traducoes = std::make_unique<structTraducoes>();
    std::vector<structIdioma> idiomas = IBDIdiomas().GetAllLang();
    if (objetos.empty()) return traducoes;
    std::erase_if(idiomas, [](const structIdioma& idioma) { return idioma.use != u"1"; });
    for (const structIdioma& idioma : idiomas) traducoes->languages.push_back(idioma.descr);

    traducoes->terms.reserve(objetos.size());
    for (const ETraduzivel* objeto : objetos) {
        const auto registros = ReadObjectRecords(ChaveCanonica(objeto->GetChave()));
        structTermo& termo = traducoes->terms.emplace_back();
        for (const structIdioma& idioma : idiomas) {
            termo.translations.push_back(
                TextoNoIdioma(*objeto, *registros, idioma.key, idiomaAtual));
        }
    }
    return traducoes;
}

}  // namespace traducaoTQ
