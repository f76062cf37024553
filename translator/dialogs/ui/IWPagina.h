// IWPagina: what the pages of the language-switch wizard have in common.
#pragma once

#include <span>

#include "platform/window/CListBox.h"
#include "platform/window/CPropertyPage.h"
#include "translator/dialogs/ui/Controles.h"

class IWTrocaIdioma;

class IWPagina : public CPropertyPage {
    DECLARE_DYNAMIC(IWPagina)

  public:
    // numero is 0, 1 or 100; passo is the page's own entry in the step list. The texts must outlive
    // the page.
    IWPagina(IWTrocaIdioma* assistente, UINT modelo, uint32_t numero, int passo,
             const TQString& tituloDoCabecalho, std::span<const TextoDeControle> textos);

    BOOL OnInitDialog() override;
    BOOL OnSetActive() override;

  protected:
    void DoDataExchange(CDataExchange* troca) override;
    DECLARE_MESSAGE_MAP()

    void PrepararBotoes(uint32_t numero);
    void PedirBotoes(DWORD botoes);  // posted: counts when the activation is over
    void PreencherPassos();
    virtual void OnPrimeiraVez() {}  // the first activation

    IWTrocaIdioma* assistente;
    uint32_t numeroPagina;
    bool primeiraVez = true;
    CString passo1, passo2, passo3;

  private:
    void ManterPasso();

    int passo;
    std::span<const TextoDeControle> textos;
    CListBox listaPassos;
};

// The header title of a page in the language of the host's translation files.
TQString TituloDoCabecalho(const char* contexto, const char* titulo);

inline constexpr int kListaPassos = 218;
