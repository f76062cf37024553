// What the pages of the wizard have in common: step list, buttons, texts.
#include "translator/dialogs/ui/IWPagina.h"

#include <QCoreApplication>

#include "platform/window/CDataExchange.h"
#include "translator/dialogs/ui/IWTrocaIdioma.h"
#include "translator/dialogs/ui/Mensagens.h"

namespace {

constexpr int32_t kTituloDoAssistente = 81;
constexpr TextoDeControle kNavegacao[] = {
    {ID_WIZBACK, 89}, {ID_WIZNEXT, 90}, {ID_WIZFINISH, 91}, {IDCANCEL, 92}};

struct BotoesDaPagina {
    uint32_t numero;
    DWORD botoes;
};
constexpr BotoesDaPagina kBotoes[] = {
    {0, PSWIZB_DISABLEDFINISH},
    {1, PSWIZB_BACK | PSWIZB_NEXT | PSWIZB_DISABLEDFINISH},
    {100, PSWIZB_BACK | PSWIZB_FINISH},
};

}  // namespace

TQString TituloDoCabecalho(const char* contexto, const char* titulo) {
    return QCoreApplication::translate(contexto, titulo);
}

IMPLEMENT_DYNAMIC(IWPagina, CPropertyPage)

BEGIN_MESSAGE_MAP(IWPagina, CPropertyPage)
ON_LBN_SELCHANGE(kListaPassos, &IWPagina::ManterPasso)
ON_LBN_SELCANCEL(kListaPassos, &IWPagina::ManterPasso)
END_MESSAGE_MAP()

IWPagina::IWPagina(IWTrocaIdioma* assistente, UINT modelo, uint32_t numero, int passo,
                   const TQString& tituloDoCabecalho, std::span<const TextoDeControle> textos)
    : CPropertyPage(modelo),
      assistente(assistente),
      numeroPagina(numero),
      passo(passo),
      textos(textos) {
    m_psp.dwFlags |= PSP_USEHEADERTITLE;
    m_psp.pszHeaderTitle = tituloDoCabecalho;
}

void IWPagina::DoDataExchange(CDataExchange* troca) {
    CPropertyPage::DoDataExchange(troca);
    DDX_Control(troca, kListaPassos, listaPassos);
}

BOOL IWPagina::OnInitDialog() {
    CPropertyPage::OnInitDialog();
    assistente->SetTitle(Mensagem(kTituloDoAssistente));
    PorTextos(*this, textos);
    passo1 = Mensagem(67);
    passo2 = Mensagem(68);
    passo3 = Mensagem(69);
    return TRUE;
}

BOOL IWPagina::OnSetActive() {
    const BOOL mostrada = CPropertyPage::OnSetActive();
    PrepararBotoes(numeroPagina);
    if (primeiraVez) {
        primeiraVez = false;
        PreencherPassos();
        OnPrimeiraVez();
    }
    return mostrada;
}

void IWPagina::PrepararBotoes(uint32_t numero) {
    for (const BotoesDaPagina& pagina : kBotoes) {
        if (pagina.numero == numero) PedirBotoes(pagina.botoes);
    }
    PorTextos(*assistente, kNavegacao);
}

void IWPagina::PedirBotoes(DWORD botoes) {
    assistente->PostMessage(PSM_SETWIZBUTTONS, 0, static_cast<LPARAM>(botoes));
}

void IWPagina::PreencherPassos() {
    for (const CString& texto : {passo1, passo2, passo3}) listaPassos.AddString(texto.GetString());
    listaPassos.SetCurSel(passo);
}

// The list shows where the user stands and is no means of navigation.
void IWPagina::ManterPasso() {
    if (listaPassos.GetCurSel() != passo) listaPassos.SetCurSel(passo);
}
