// The store of languages and terms: the one door to the language database.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "translator/cad/TQString.h"

// The block kinds of a page group. The values stand in BDPAGEBLOCKS.BLOCK as decimal text.
enum pageBlockType { SELO = 0, IDENTIFY = 1, FORMATO = 2, DE = 3, PAGINA = 4 };

namespace traducaoTQ {

// Stateless: made where it is needed, nothing is cached. A failed read gives an empty value or
// null, a failed write is never seen; no exception leaves the store. Reads wait for the database,
// writes are submitted in order and not awaited. Main thread only.
class IBDIdiomas {
  public:
    // One row of BDLANGUAGE, as text.
    struct structIdioma {
        TQString key;    // the language's number, "1", "2" ...; the suffix of its column
        TQString descr;  // the name shown to the user
        TQString use;    // "1": in use; any other text: not in use
    };

    // One row of BDTRANSLATOR. translations holds one text per language in use, in the order of
    // GetAllLang; it must not be shorter than that when the term is written.
    struct structTermo {
        int32_t key = -1;  // above 0: a row of the table; any other value: no row yet
        std::vector<TQString> translations;
    };

    // The whole dictionary.
    struct structTraducoes {
        std::vector<TQString> languages;  // the descr of each language in use, in language order
        std::vector<structTermo> terms;   // in ascending key
    };

    // All languages, in use or not, in ascending number; empty when there are none.
    std::vector<structIdioma> GetAllLang();
    void UpdateLang(structIdioma idioma);

    // The dictionary, or null when it has no rows or cannot be read.
    std::unique_ptr<structTraducoes> GetTerms();
    // The same with the columns of those of these languages alone that are in use, in their order.
    std::unique_ptr<structTraducoes> GetTerms(std::vector<structIdioma> idiomas);
    void UpdateTerm(structTermo& termo);
    void InsertTerm(structTermo& termo);  // the row's key comes from the database; termo.key stays
    void DeleteTerm(structTermo& termo);
    void SaveTerm(structTermo& termo);  // updates when key is above 0, else inserts
    int GetMaxTermLength();             // of every language column, in characters

    // Always empty, whatever BDGROUP holds: so no page group is ever redefined.
    std::vector<TQString> GetPageGroupKeys();
    // The path of a block of a page group in a language; empty when the database holds none.
    TQString GetPageGroupSelo(TQString grupo, TQString idioma);
    TQString GetPageGroupIdentify(TQString grupo, TQString idioma);
    TQString GetPageGroupFormato(TQString grupo, TQString idioma);
    TQString GetPageGroupDe(TQString grupo, TQString idioma);
    TQString GetPageGroupPagina(TQString grupo, TQString idioma);

  private:
    TQString getPageGroupBlock(pageBlockType tipo, TQString grupo, TQString idioma);
};

}  // namespace traducaoTQ
