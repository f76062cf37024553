// The wizard's first page, template 106.
#include "translator/dialogs/ui/IWPSelecaoIdioma.h"

#include <algorithm>

#include "platform/window/CDataExchange.h"

namespace {

using enum ControlKind;

enum ControlesSelecao : int {
    kListaDestino = 252,
    kListaOrigem = 253,
    kRotuloOrigem = 265,
    kRotuloDestino = 266,
};

constexpr unsigned kModeloSelecao = 106;
constexpr DialogControl kControles[] = {
    {ListBox, kListaPassos, u"", 0, 0, 94, 134},
    {LeftText, kRotuloOrigem, u"Idioma Original:", 127, 41, 99, 8},
    {DropDownList, kListaOrigem, u"", 127, 49, 115, 30, WS_DISABLED},
    {LeftText, kRotuloDestino, u"Idioma Destino:", 127, 73, 103, 8},
    {DropDownList, kListaDestino, u"", 127, 81, 115, 30},
};
constexpr DialogTemplate kModelo = {kModeloSelecao, u"", 276, 135, WS_CHILD, kControles};
const DialogResource kRecurso(kModelo);

constexpr TextoDeControle kTextos[] = {{kRotuloOrigem, 65}, {kRotuloDestino, 66}};

constexpr char16_t kNenhumIdioma[] = u"-1";
constexpr DWORD kPodeSeguir = PSWIZB_NEXT | PSWIZB_DISABLEDFINISH;

}  // namespace

IMPLEMENT_DYNAMIC(IWPSelecaoIdioma, IWPagina)

BEGIN_MESSAGE_MAP(IWPSelecaoIdioma, IWPagina)
ON_CBN_SELCHANGE(kListaDestino, &IWPSelecaoIdioma::OnDestinoAlterado)
END_MESSAGE_MAP()

IWPSelecaoIdioma::IWPSelecaoIdioma(IWTrocaIdioma* assistente)
    : IWPagina(assistente, kModeloSelecao, 0, 0,
               TituloDoCabecalho("IWPSelecaoIdioma", "Language selection"), kTextos) {}

void IWPSelecaoIdioma::Iniciar(const IWTrocaIdioma::ListaIdiomas& todos, const TQString& origem,
                               const TQString& destino) {
    idiomas = todos;
    idiomaOrigem = origem;
    idiomaDestino = destino;
}

void IWPSelecaoIdioma::DoDataExchange(CDataExchange* troca) {
    IWPagina::DoDataExchange(troca);
    DDX_Control(troca, kListaOrigem, listaOrigem);
    DDX_Control(troca, kListaDestino, listaDestino);
}

BOOL IWPSelecaoIdioma::OnSetActive() {
    const BOOL mostrada = IWPagina::OnSetActive();
    // A target that is no language in use leaves its list without a selection, and still goes on.
    if (!(idiomaDestino == kNenhumIdioma)) PedirBotoes(kPodeSeguir);
    return mostrada;
}

void IWPSelecaoIdioma::OnPrimeiraVez() {
    for (const auto& idioma : idiomas) {
        if (!EmUso(idioma)) continue;
        listaDestino.AddString(idioma.descr);
        listaOrigem.AddString(idioma.descr);
    }
    if (!(idiomaDestino == kNenhumIdioma)) listaDestino.SetCurSel(PosicaoEmUso(idiomaDestino));
    listaOrigem.SetCurSel(PosicaoEmUso(idiomaOrigem));
}

int IWPSelecaoIdioma::PosicaoEmUso(const TQString& chave) const {
    int posicao = 0;
    for (const auto& idioma : idiomas) {
        if (!EmUso(idioma)) continue;
        if (idioma.key == chave) return posicao;
        ++posicao;
    }
    return -1;
}

void IWPSelecaoIdioma::OnDestinoAlterado() {
    PedirBotoes(kPodeSeguir);
    idiomaDestino = kNenhumIdioma;
    const auto nome = Selecionado(listaDestino);
    if (!nome) return;
    const auto achado = std::find_if(idiomas.begin(), idiomas.end(),
                                     [&](const auto& idioma) { return idioma.descr == *nome; });
    if (achado != idiomas.end()) idiomaDestino = achado->key;
}
