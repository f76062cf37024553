// The scan: finds every translatable of the current drawing. Reads the drawing only.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "platform/drawing/DbObjectId.h"
#include "translator/cad/TQString.h"
#include "translator/cad/TQStringList.h"
#include "translator/engine/ListaTraduziveis.h"

namespace traducaoTQ {

// A page is a layer of the model space. The layers "0" and "tq_freeze" are never pages.
class ITradCad {
  public:
    // What BuscarTraduziveisMistos is asked for. The pages are layer names, taken in this order.
    struct Pedido {
        TQStringList paginas;
        bool atributos = true;  // attributes and wires
        bool textos = true;     // free texts and texts in blocks
        bool camadasDePagina = false;
        bool incluirCamada0 = false;  // layer "0" counts as a page like any other
    };

    // The scan of the commands. Asks the user for the pages through LISP, unless todasCamadas takes
    // all layers; camadasDePagina adds the layers "$DE", "$SELO" and "$FORMATO" of each chosen
    // page. With atributos, the first entity of a page that is no block reference ends the scan
    // with OdError_NotThatKindOfClass and a line in the log. The list is never null.
    ListaTraduziveis BuscarTraduziveis(bool atributos, bool textos, bool fios, bool blocoTextos,
                                       bool defAtributos, bool todasCamadas, bool camadasDePagina);

    // The scan of pages that hold lines and texts beside blocks: the same collectors, order and
    // filter, each collector called only for the objects that it takes.
    ListaTraduziveis BuscarTraduziveisMistos(const Pedido& pedido);

    // The same in three steps, for who shares the second one between threads: the entities of the
    // pages, what some of them bear, and all of it in the order of the scan.
    struct Colheita {
        ListaTraduziveis lista;
        ListaTraduziveis fios;  // behind the lists of all pages
    };
    std::vector<OdDbObjectId> BuscarObjetosMistos(const Pedido& pedido);
    static Colheita ColherMistos(const Pedido& pedido, std::span<const OdDbObjectId> objetos);
    ListaTraduziveis JuntarColheitas(std::vector<Colheita> colheitas);

  private:
    std::vector<OdDbObjectId> BuscarObjetosPaginas(const TQStringList& paginas);
    std::vector<OdDbObjectId> BuscarObjetosLayer(const TQString& camada);
    ListaTraduziveis BuscarAtributos(OdDbObjectId id);  // null for a null id
    ListaTraduziveis BuscarTextos(OdDbObjectId id);     // null for a null id
    ListaTraduziveis BuscarDefAtributos(OdDbObjectId id);
    ListaTraduziveis BuscarBlocoTextos(OdDbObjectId id);
    ListaTraduziveis BuscarFiosPaginas(const TQStringList& paginas);
    ListaTraduziveis BuscarFios(const TQString& camada);
    ListaTraduziveis BuscarAtributosVirtuais();
};

}  // namespace traducaoTQ
