// IWTrocaIdioma: the wizard that asks for a language switch. It collects three answers and changes
// nothing: with the result ID_WIZFINISH the command carries them out.
#pragma once

#include <memory>
#include <vector>

#include "platform/window/CPropertySheet.h"
#include "translator/cad/TQString.h"
#include "translator/langdb/IBDIdiomas.h"

class IWPConclusao;
class IWPGruposDePaginas;
class IWPSelecaoIdioma;

class IWTrocaIdioma : public CPropertySheet {
    DECLARE_DYNAMIC(IWTrocaIdioma)

  public:
    using ListaIdiomas = std::vector<traducaoTQ::IBDIdiomas::structIdioma>;

    IWTrocaIdioma(const char16_t* titulo, CWnd* pai, UINT paginaInicial);
    ~IWTrocaIdioma() override;

    // All languages, used or not, and two keys; idiomaDestino "-1" preselects no target.
    void Iniciar(const ListaIdiomas& idiomas, const TQString& idiomaOrigem,
                 const TQString& idiomaDestino);

    TQString GetIdiomaDestino() const;
    bool GetRedefinirGrupos() const;
    bool GetTraduzirAtributos() const;

    // What the user has chosen, as the last page shows it.
    TQString TextoResumo() const;

    BOOL OnInitDialog() override;

  protected:
    DECLARE_MESSAGE_MAP()

  private:
    void AdicionarPaginas();
    TQString NomeDe(const TQString& chave) const;  // empty for an unknown key

    std::unique_ptr<IWPSelecaoIdioma> paginaIdioma;
    std::unique_ptr<IWPGruposDePaginas> paginaGrupos;
    std::unique_ptr<IWPConclusao> paginaConclusao;
};
