// IWPSelecaoIdioma: the wizard's first page, where the target language is chosen.
#pragma once

#include "platform/window/CComboBox.h"
#include "translator/dialogs/ui/IWPagina.h"
#include "translator/dialogs/ui/IWTrocaIdioma.h"

class IWPSelecaoIdioma : public IWPagina {
    DECLARE_DYNAMIC(IWPSelecaoIdioma)

  public:
    explicit IWPSelecaoIdioma(IWTrocaIdioma* assistente);

    void Iniciar(const IWTrocaIdioma::ListaIdiomas& todos, const TQString& origem,
                 const TQString& destino);
    BOOL OnSetActive() override;

    IWTrocaIdioma::ListaIdiomas idiomas;
    TQString idiomaDestino = u"-1";  // "-1" while none is chosen
    TQString idiomaOrigem;

  protected:
    void DoDataExchange(CDataExchange* troca) override;
    void OnPrimeiraVez() override;
    DECLARE_MESSAGE_MAP()

  private:
    // The position among the languages in use; -1 for none.
    int PosicaoEmUso(const TQString& chave) const;
    void OnDestinoAlterado();

    CComboBox listaOrigem, listaDestino;
};
