// The dictionary editor, template 207: its controls, its grid, its size.
#include "translator/dialogs/ui/IEdicaoDicionario.h"

#include "platform/kernel/MxMessageBox.h"
#include "platform/window/CDataExchange.h"
#include "translator/dialogs/ui/CelulaDeTexto.h"
#include "translator/dialogs/ui/Controles.h"
#include "translator/dialogs/ui/ControlesDosEditores.h"
#include "translator/dialogs/ui/Mensagens.h"
#include "translator/dialogs/ui/OrdemDeLista.h"

namespace {

using enum ControlKind;

constexpr unsigned kModeloEdicaoDicionario = 207;

constexpr DialogControl kControles[] = {
    {LeftText, kRotuloLista, u"Lista de Termos:", 10, 7, 114, 8},
    {ListView, kListaTermos, u"", 10, 19, 352, 195, LVS_REPORT | LVS_SINGLESEL | WS_BORDER},
    {PushButton, kBotaoAdicionar, u"Adicionar", 10, 222, 50, 14},
    {PushButton, kBotaoRemover, u"Remover", 64, 222, 50, 14},
    {PushButton, kBotaoOK, u"OK", 204, 222, 50, 14},
    {PushButton, kBotaoAplicar, u"Aplicar", 258, 222, 50, 14},
    {PushButton, kBotaoCancelar, u"Cancelar", 312, 222, 50, 14},
};

constexpr DialogTemplate kModelo = {kModeloEdicaoDicionario,
                                    u"Edição do Dicionário",
                                    372,
                                    243,
                                    WS_POPUP | WS_CAPTION | WS_THICKFRAME,
                                    kControles};
const DialogResource kRecurso(kModelo);

constexpr int kTitulo = 4;
constexpr int kPerguntaRemover = 11;
constexpr TextoDeControle kTextos[] = {{kRotuloLista, 5},  {kBotaoAdicionar, 6},
                                       {kBotaoRemover, 7}, {kBotaoOK, 8},
                                       {kBotaoAplicar, 9}, {kBotaoCancelar, 10}};

constexpr int kLarguraMinima = 500, kAlturaMinima = 400;
constexpr int kLarguraColuna = 150;
constexpr int kLimiteLinhaNova = 50;
constexpr UINT kSoMover = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;

}  // namespace

bool IEdicaoDicionario::ordemCrescente = false;
CListCtrl* IEdicaoDicionario::listaOrdenada = nullptr;

IMPLEMENT_DYNAMIC(IEdicaoDicionario, CIResizableDialog)

BEGIN_MESSAGE_MAP(IEdicaoDicionario, CIResizableDialog)
ON_WM_SIZE()
ON_BN_CLICKED(kBotaoOK, &IEdicaoDicionario::BotaoOK)
ON_BN_CLICKED(kBotaoAplicar, &IEdicaoDicionario::BotaoAplicar)
ON_BN_CLICKED(kBotaoCancelar, &IEdicaoDicionario::BotaoCancelar)
ON_BN_CLICKED(kBotaoAdicionar, &IEdicaoDicionario::Adicionar)
ON_BN_CLICKED(kBotaoRemover, &IEdicaoDicionario::Remover)
ON_NOTIFY(LVN_COLUMNCLICK, kListaTermos, &IEdicaoDicionario::OrdenarColuna)
END_MESSAGE_MAP()

IEdicaoDicionario::IEdicaoDicionario(CWnd* pai) : CIResizableDialog(kModeloEdicaoDicionario, pai) {
    larguraMinima = kLarguraMinima;
    alturaMinima = kAlturaMinima;
}

void IEdicaoDicionario::DoDataExchange(CDataExchange* troca) {
    CIResizableDialog::DoDataExchange(troca);
    DDX_Control(troca, kBotaoOK, btnOk);
    DDX_Control(troca, kBotaoAplicar, btnAplicar);
    DDX_Control(troca, kBotaoCancelar, btnCancelar);
    DDX_Control(troca, kBotaoAdicionar, btnAdicionar);
    DDX_Control(troca, kBotaoRemover, btnRemover);
    DDX_Control(troca, kListaTermos, lista);
}

BOOL IEdicaoDicionario::OnInitDialog() {
    CIResizableDialog::OnInitDialog();
    PreencherLista();
    CarregarTextos();
    DefinirAlturaDasLinhas(lista);
    return TRUE;
}

void IEdicaoDicionario::CarregarTextos() {
    SetWindowText(Mensagem(kTitulo));
    PorTextos(*this, kTextos);
    perguntaRemover = Mensagem(kPerguntaRemover);
}

void IEdicaoDicionario::PreencherLista() {
    traducoes = traducaoTQ::IBDIdiomas().GetTerms();
    if (!traducoes) traducoes = DicionarioVazio();
    // 0 when the database is gone: cells of that limit would be cut to nothing at the end of an
    // edit.
    const int lido = traducaoTQ::IBDIdiomas().GetMaxTermLength();
    const int limite = lido > 0 ? lido : kLimiteLinhaNova;
    for (const TQString& idioma : traducoes->languages) {
        lista.AddColumn(idioma, kLarguraColuna, false);
    }
    lista.SetItemCount(static_cast<int>(traducoes->terms.size()));
    for (const structTermo& termo : traducoes->terms) {
        AcrescentarLinha(TQString(termo.key, 1), termo.translations, limite);
    }
}

// A dictionary without terms still has its languages, so that the first term can be typed.
std::unique_ptr<IEdicaoDicionario::structTraducoes> IEdicaoDicionario::DicionarioVazio() {
    auto vazio = std::make_unique<structTraducoes>();
    for (const auto& idioma : traducaoTQ::IBDIdiomas().GetAllLang()) {
        if (EmUso(idioma)) vazio->languages.push_back(idioma.descr);
    }
    return vazio;
}

void IEdicaoDicionario::AcrescentarLinha(const TQString& chave, const std::vector<TQString>& textos,
                                         int limite) {
    if (textos.empty()) return;
    const int linha = lista.GetItemCount();
    lista.AddItem(chave, textos[0], textos[0], limite, kCelulaTexto, kFormatoLivre, true, 0);
    for (size_t coluna = 1; coluna < textos.size(); ++coluna) {
        lista.SetSubItem(linha, static_cast<int>(coluna), chave, textos[coluna], textos[coluna],
                         limite, kCelulaTexto, kFormatoLivre, true, 0);
    }
}

void IEdicaoDicionario::Adicionar() {
    const int linha = lista.GetItemCount();
    AcrescentarLinha(kChaveNova, std::vector<TQString>(traducoes->languages.size()),
                     kLimiteLinhaNova);
    lista.BeginEdit(linha, 0);
}

// The question comes first, also when no row is selected; this is meant.
void IEdicaoDicionario::Remover() {
    if (Perguntar(perguntaRemover, kButtonYes + kButtonNo) != kButtonYes) return;
    const int linha = lista.GetSelectionMark();
    if (linha >= 0) lista.DeleteItem(linha);
}

void IEdicaoDicionario::BotaoOK() {
    SalvarAlteracoes();
    EndDialog(0);
}

void IEdicaoDicionario::BotaoAplicar() {
    SalvarAlteracoes();
    lista.DeleteAllItems();
    ApagarColunas(lista);
    PreencherLista();
}

void IEdicaoDicionario::BotaoCancelar() { EndDialog(0); }

void IEdicaoDicionario::OrdenarColuna(NMHDR* aviso, LRESULT* resultado) {
    ordemCrescente = !ordemCrescente;
    listaOrdenada = &lista;
    OrdenarPorColuna(lista, CompararLinhas, reinterpret_cast<NMLISTVIEW*>(aviso)->iSubItem);
    *resultado = 0;
}

int IEdicaoDicionario::CompararLinhas(LPARAM a, LPARAM b, LPARAM) {
    return CompararTextos(*listaOrdenada, a, b, ordemCrescente);
}

void IEdicaoDicionario::OnSize(UINT, int cx, int cy) {
    int32_t& largura = layout[0];
    int32_t& altura = layout[1];
    if (largura == 0 && altura == 0) {
        const int y = cy - 35;
        const int32_t inicio[12] = {cx, cy, cx - 254, y, cx - 171, y, cx - 88, y, 15, y, 96, y};
        std::copy(std::begin(inicio), std::end(inicio), layout);
    }
    const int dx = cx - largura;
    const int dy = cy - altura;
    largura = cx;
    altura = cy;
    CButton* const botoes[] = {&btnOk, &btnAplicar, &btnCancelar, &btnAdicionar, &btnRemover};
    for (int i = 0; i < 5; ++i) {
        int32_t& x = layout[2 + 2 * i];
        int32_t& y = layout[3 + 2 * i];
        if (i < 3) x += dx;  // the last two keep to the left edge
        y += dy;
        botoes[i]->SetWindowPos(nullptr, x, y, 0, 0, kSoMover);
        botoes[i]->Invalidate(TRUE);
    }
    lista.MoveWindow(15, 31, cx - 30, cy - 73);
    lista.Invalidate(TRUE);
}
