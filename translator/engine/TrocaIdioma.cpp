// The language switch.
#include "translator/engine/TrocaIdioma.h"

#include "platform/drawing/EObjString.h"
#include "translator/cad/CICad.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/engine/ITradCad.h"
#include "translator/engine/IdiomaDoProjeto.h"
#include "translator/engine/RegistrosTraducao.h"

namespace traducaoTQ {

namespace {

OdDbDictionaryPtr TodosOsRegistros() {
    OdDbDatabase* desenho = CurrentDatabase();
    if (!desenho || !desenho->hasDictionaries()) return {};
    const OdDbDictionaryPtr raiz =
        SafeOpen(desenho->getNamedObjectsDictionaryId(), OdDb::kForWrite);
    if (raiz.isNull()) return {};
    return GetOrCreateDictionary(VRN_TQ_OBJS_TRADS, raiz);
}

}  // namespace

void ChangeProjectLanguage(TQString idiomaOriginal, TQString idiomaDestino, bool camadasDePagina) {
    const ListaTraduziveis lista =
        ITradCad().BuscarTraduziveis(true, true, true, true, false, true, camadasDePagina);
    if (lista && !lista->empty()) {
        TrocaDeTextos troca(idiomaOriginal, idiomaDestino);
        for (ETraduzivel* objeto : *lista) troca.Trocar(*objeto);
    }
    if (HaProjeto()) DefinirIdiomaDoProjeto(idiomaDestino.ToInt());
    tq::CICad().Regen();
}

TrocaDeTextos::TrocaDeTextos(TQString idiomaOriginal, TQString idiomaDestino)
    : original(std::move(idiomaOriginal)),
      destino(std::move(idiomaDestino)),
      todos(TodosOsRegistros()) {}

bool TrocaDeTextos::Trocar(ETraduzivel& objeto) {
    const auto registro = RegistroNoDestino(objeto);
    if (registro) Aplicar(objeto, *registro);
    return registro.has_value();
}

std::optional<TrocaDeTextos::Registro> TrocaDeTextos::RegistroNoDestino(
    const ETraduzivel& objeto) const {
    if (todos.isNull()) return std::nullopt;
    const OdDbDictionaryPtr doObjeto = todos->getAt(objeto.GetChave(), OdDb::kForWrite);
    if (doObjeto.isNull()) return std::nullopt;
    auto texto = TextoRegistrado(*doObjeto, destino);
    if (!texto || NadaDiz(*texto)) return std::nullopt;
    return Registro{doObjeto, std::move(*texto)};
}

// What is replaced is recorded first: with both languages the same, record and object change
// places.
void TrocaDeTextos::Aplicar(ETraduzivel& objeto, const Registro& registro) {
    EObjStringPtr substituido = EObjString::createObject();
    if (objeto.GetTexto()) substituido->setValue(*objeto.GetTexto());
    registro.doObjeto->setAt(original, substituido);
    objeto.SetTexto(registro.texto);
}

std::optional<TQString> TextoRegistrado(const OdDbDictionary& doObjeto, const TQString& idioma) {
    const EObjStringPtr valor = doObjeto.getAt(idioma, OdDb::kForRead);
    if (valor.isNull()) return std::nullopt;
    return TQString(valor->getValue());
}

}  // namespace traducaoTQ
