// The language editor, template 4.
#include "translator/dialogs/ui/IEdicaoIdiomas.h"

#include "platform/window/CDataExchange.h"
#include "translator/dialogs/ui/CelulaDeTexto.h"
#include "translator/dialogs/ui/Controles.h"
#include "translator/dialogs/ui/ControlesDosEditores.h"
#include "translator/dialogs/ui/Mensagens.h"

namespace {

using enum ControlKind;

constexpr unsigned kModeloEdicaoIdiomas = 4;

constexpr DialogControl kControles[] = {
    {LeftText, kRotuloLista, u"Lista de Idiomas:", 7, 7, 137, 8},
    {ListView, kListaIdiomas, u"", 7, 18, 222, 173, LVS_REPORT | LVS_SINGLESEL | WS_BORDER},
    {PushButton, kBotaoOK, u"OK", 75, 197, 50, 14},
    {PushButton, kBotaoAplicar, u"Aplicar", 127, 197, 50, 14},
    {PushButton, kBotaoCancelar, u"Cancel", 179, 197, 50, 14},
};

constexpr DialogTemplate kModelo = {
    kModeloEdicaoIdiomas, u"Edição de Idiomas", 236, 218, WS_CAPTION, kControles};
const DialogResource kRecurso(kModelo);

constexpr int kTitulo = 18;
constexpr TextoDeControle kTextos[] = {
    {kRotuloLista, 19}, {kBotaoOK, 20}, {kBotaoAplicar, 21}, {kBotaoCancelar, 22}};

constexpr int kColunaNome = 0, kColunaUso = 1;
constexpr int kLarguraNome = 220, kLarguraUso = 100;
constexpr int kLimiteNome = 50, kLimiteUso = 240;
constexpr int kOpcaoNaoUsado = 0, kOpcaoUsado = 1;

}  // namespace

IMPLEMENT_DYNAMIC(IEdicaoIdiomas, CDialog)

BEGIN_MESSAGE_MAP(IEdicaoIdiomas, CDialog)
ON_BN_CLICKED(kBotaoOK, &IEdicaoIdiomas::BotaoOK)
ON_BN_CLICKED(kBotaoAplicar, &IEdicaoIdiomas::BotaoAplicar)
ON_BN_CLICKED(kBotaoCancelar, &IEdicaoIdiomas::BotaoCancelar)
END_MESSAGE_MAP()

IEdicaoIdiomas::IEdicaoIdiomas(CWnd* pai) : CDialog(kModeloEdicaoIdiomas, pai) {}

void IEdicaoIdiomas::DoDataExchange(CDataExchange* troca) {
    CDialog::DoDataExchange(troca);
    DDX_Control(troca, kListaIdiomas, lista);
    CarregarTextos();
    lista.AddColumn(tituloIdioma, kLarguraNome, false);
    lista.AddColumn(tituloUso, kLarguraUso, false);
    PreencherLista();
    DefinirAlturaDasLinhas(lista);
}

void IEdicaoIdiomas::CarregarTextos() {
    SetWindowText(Mensagem(kTitulo));
    PorTextos(*this, kTextos);
    rotuloNaoUsado = Mensagem(23);
    rotuloUsado = Mensagem(24);
    tituloIdioma = Mensagem(25);
    tituloUso = Mensagem(26);
}

void IEdicaoIdiomas::PreencherLista() {
    idiomas = traducaoTQ::IBDIdiomas().GetAllLang();
    const TQStringList opcoes(std::vector<TQString>{rotuloNaoUsado, rotuloUsado});
    int linha = 0;
    for (const auto& idioma : idiomas) {
        lista.AddItem(idioma.key, idioma.descr, idioma.descr, kLimiteNome, kCelulaTexto,
                      kFormatoLivre, true, 0);
        const int opcao = idioma.use.EqualsNoCase(u"1") ? kOpcaoUsado : kOpcaoNaoUsado;
        lista.SetSubItem(linha, kColunaUso, idioma.key, idioma.descr, opcoes, kLimiteUso,
                         kCelulaOpcoes, kFormatoLivre, true, opcao);
        lista.SetIndice(linha, kColunaUso, opcao);
        ++linha;
    }
}

// A change of use alone is not written: it goes into the database with a change of the name. An
// unchanged row is written, which changes nothing. Both are meant.
void IEdicaoIdiomas::SalvarIdiomas() {
    for (size_t i = 0; i < idiomas.size(); ++i) {
        auto& idioma = idiomas[i];
        const int linha = static_cast<int>(i);
        const TQString nome = lista.GetItemText(linha, kColunaNome);
        const bool usado = lista.GetItemText(linha, kColunaUso).CompareNoCase(rotuloUsado) == 0;
        const TQString uso = usado ? u"1" : u"0";
        if (idioma.descr == nome && !(idioma.use == uso)) continue;
        idioma.descr = nome;
        idioma.use = uso;
        traducaoTQ::IBDIdiomas().UpdateLang(idioma);
    }
}

void IEdicaoIdiomas::BotaoOK() {
    SalvarIdiomas();
    EndDialog(0);
}

void IEdicaoIdiomas::BotaoAplicar() { SalvarIdiomas(); }

void IEdicaoIdiomas::BotaoCancelar() { EndDialog(0); }
