// The scan: choice of the pages, order of the collectors, filter.
#include "translator/engine/ITradCad.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "platform/kernel/MxSystemServices.h"
#include "platform/text/Conversion.h"
#include "translator/cad/CICad.h"
#include "translator/cad/DrawingHelpers.h"
#include "translator/engine/Coletores.h"

namespace traducaoTQ {

namespace {

constexpr char16_t ESCOLHA_DE_PAGINAS[] = u"(setq pblTmpSelPags (tq_seleciona_paginas))";
constexpr char16_t PAGINAS_ESCOLHIDAS[] = u"pblTmpSelPags";
constexpr char16_t SEPARADOR_CAMADA[] = u"$";
constexpr char16_t BLOCO_FORMATO[] = u"FORMATO";
constexpr char16_t BLOCO_SELO[] = u"SELO";
constexpr char16_t BLOCO_DE[] = u"DE";

// The layers of the blocks stand behind all pages, the last page's first.
void AcrescentarCamadasDePagina(TQStringList& paginas) {
    std::vector<TQString> camadas;
    for (const TQString& nome : paginas) {
        const TQString pagina = nome.Tokenize(SEPARADOR_CAMADA).Front();
        for (const char16_t* bloco : {BLOCO_DE, BLOCO_SELO, BLOCO_FORMATO}) {
            camadas.push_back(pagina + SEPARADOR_CAMADA + bloco);
        }
    }
    std::copy(camadas.rbegin(), camadas.rend(), std::back_inserter(paginas));
}

TQStringList EscolherPaginas(bool todasCamadas, bool camadasDePagina) {
    OdDbDatabase* desenho = CurrentDatabase();
    if (!desenho) return {};
    tq::CICad cad;
    if (todasCamadas) return cad.GetLayers(desenho);
    cad.ExecutaFuncaoCad(ESCOLHA_DE_PAGINAS);
    TQStringList paginas = cad.GetVarLstStr(PAGINAS_ESCOLHIDAS, ACTIVE_DOCUMENT());
    if (camadasDePagina) AcrescentarCamadasDePagina(paginas);
    return paginas;
}

TQStringList SoPaginas(const TQStringList& nomes, bool incluirCamada0) {
    TQStringList paginas;
    for (const TQString& nome : nomes) {
        if (nome.EqualsNoCase(u"tq_freeze") || (nome.EqualsNoCase(u"0") && !incluirCamada0)) {
            continue;
        }
        paginas.push_back(nome);
    }
    return paginas;
}

// A wire's text is not trimmed, only its string as a whole.
bool TemTexto(const ETraduzivel* traduzivel) {
    const TQString* texto = traduzivel->GetTexto();
    return texto && !text::TrimLeft(*texto).empty();
}

void DescartarSemTexto(ListaTraduziveis& lista) {
    std::erase_if(*lista, [](const ETraduzivel* traduzivel) {
        if (TemTexto(traduzivel)) return false;
        delete traduzivel;
        return true;
    });
}

}  // namespace

ListaTraduziveis ITradCad::BuscarTraduziveis(bool atributos, bool textos, bool fios,
                                             bool blocoTextos, bool defAtributos, bool todasCamadas,
                                             bool camadasDePagina) {
    const TQStringList paginas = SoPaginas(EscolherPaginas(todasCamadas, camadasDePagina), false);
    ListaTraduziveis lista = NovaLista();
    for (const OdDbObjectId& id : BuscarObjetosPaginas(paginas)) {
        if (atributos && IsValidId(id)) JuntarA(lista, BuscarAtributos(id));
        if (textos) JuntarA(lista, BuscarTextos(id));
        if (defAtributos && IsValidId(id)) JuntarA(lista, BuscarDefAtributos(id));
        if (blocoTextos) JuntarA(lista, BuscarBlocoTextos(id));
    }
    if (fios) JuntarA(lista, BuscarFiosPaginas(paginas));
    // Virtual attributes belong to no page: they come whatever is asked for.
    JuntarA(lista, BuscarAtributosVirtuais());
    DescartarSemTexto(lista);
    return lista;
}

ListaTraduziveis ITradCad::BuscarTraduziveisMistos(const Pedido& pedido) {
    std::vector<Colheita> colheitas;
    colheitas.push_back(ColherMistos(pedido, BuscarObjetosMistos(pedido)));
    return JuntarColheitas(std::move(colheitas));
}

std::vector<OdDbObjectId> ITradCad::BuscarObjetosMistos(const Pedido& pedido) {
    TQStringList nomes = pedido.paginas;
    if (pedido.camadasDePagina) AcrescentarCamadasDePagina(nomes);
    // A layer that is chosen itself may also come with its page.
    std::set<std::u16string> vistas;
    nomes.remove_if([&](const TQString& nome) { return !vistas.insert(nome).second; });
    return BuscarObjetosPaginas(SoPaginas(nomes, pedido.incluirCamada0));
}

ITradCad::Colheita ITradCad::ColherMistos(const Pedido& pedido,
                                          std::span<const OdDbObjectId> objetos) {
    Colheita colheita{NovaLista(), NovaLista()};
    for (const OdDbObjectId& id : objetos) {
        const OdDbObjectPtr objeto = SafeOpen(id);
        if (objeto.isNull()) continue;
        if (const auto bloco = OdDbBlockReference::cast(objeto); !bloco.isNull()) {
            if (pedido.atributos) ColherAtributos(colheita.lista, id);
            if (pedido.textos) ColherBlocoTextos(colheita.lista, *bloco);
        } else if (const auto polilinha = OdDbPolyline::cast(objeto); !polilinha.isNull()) {
            if (pedido.atributos) ColherFios(colheita.fios, *polilinha);
        } else if (pedido.textos) {
            ColherTexto(colheita.lista, *objeto);
        }
    }
    DescartarSemTexto(colheita.lista);
    DescartarSemTexto(colheita.fios);
    return colheita;
}

ListaTraduziveis ITradCad::JuntarColheitas(std::vector<Colheita> colheitas) {
    ListaTraduziveis lista = NovaLista();
    for (Colheita& colheita : colheitas) JuntarA(lista, std::move(colheita.lista));
    for (Colheita& colheita : colheitas) JuntarA(lista, std::move(colheita.fios));
    ListaTraduziveis virtuais = BuscarAtributosVirtuais();
    DescartarSemTexto(virtuais);
    JuntarA(lista, std::move(virtuais));
    return lista;
}

}  // namespace traducaoTQ
