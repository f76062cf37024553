// IWPGruposDePaginas: the wizard's second page, with its two options.
#pragma once

#include "platform/window/CButton.h"
#include "translator/dialogs/ui/IWPagina.h"

class IWPGruposDePaginas : public IWPagina {
    DECLARE_DYNAMIC(IWPGruposDePaginas)

  public:
    explicit IWPGruposDePaginas(IWTrocaIdioma* assistente);

    bool redefinirGrupos = false;  // both true from the first show on, until the user unticks them
    bool traduzirAtributos = false;

  protected:
    void DoDataExchange(CDataExchange* troca) override;
    void OnPrimeiraVez() override;
    DECLARE_MESSAGE_MAP()

  private:
    void OnOpcao();

    CButton caixaGrupos, caixaAtributos;
};
