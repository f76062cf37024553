// The project translation dialog: its controls, texts, languages and enable rules.
#include "translator/dialogs/ui/ITradutorProj.h"

#include <algorithm>

#include "platform/window/CDataExchange.h"
#include "translator/dialogs/ui/Controles.h"
#include "translator/dialogs/ui/Mensagens.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

constexpr char16_t kNenhumIdioma[] = u"-1";

constexpr int kFiltros[] = {kFiltroNaoTraduzido, kFiltroAutomatica, kFiltroManual,
                            kFiltroImportado};
// What a scan with objects enables.
constexpr int kTrabalho[] = {
    kBotaoTraduzir,    kBotaoSubstituir, kBotaoSalvarProjeto,   kBotaoImportar, kBotaoExportar,
    kBotaoSalvar,      kBotaoCarregar,   kBotaoCarregarProjeto, kListaDestino,  kFiltroNaoTraduzido,
    kFiltroAutomatica, kFiltroManual,    kFiltroImportado};
// What "Substituir" disables.
constexpr int kTrabalhoFeito[] = {
    kBotaoTraduzir, kBotaoSalvarProjeto, kBotaoImportar,    kBotaoExportar, kListaOrigem,
    kListaDestino,  kFiltroNaoTraduzido, kFiltroAutomatica, kFiltroManual,  kFiltroImportado};

}  // namespace

IMPLEMENT_DYNAMIC(ITradutorProj, CDialog)

BEGIN_MESSAGE_MAP(ITradutorProj, CDialog)
ON_WM_SIZE()
ON_WM_SIZING()
ON_BN_CLICKED(kBotaoFechar, &ITradutorProj::Fechar)
ON_BN_CLICKED(kBotaoTraduzir, &ITradutorProj::Traduzir)
ON_BN_CLICKED(kBotaoSubstituir, &ITradutorProj::Substituir)
ON_BN_CLICKED(kBotaoSalvarProjeto, &ITradutorProj::OnSalvarProjeto)
ON_BN_CLICKED(kBotaoSalvar, &ITradutorProj::OnSalvarDicionario)
ON_BN_CLICKED(kBotaoCarregar, &ITradutorProj::CarregarDicionario)
ON_BN_CLICKED(kBotaoCarregarProjeto, &ITradutorProj::CarregarDicionarioProjeto)
ON_BN_CLICKED(kBotaoExportar, &ITradutorProj::Exportar)
ON_BN_CLICKED(kBotaoImportar, &ITradutorProj::Importar)
ON_BN_CLICKED(kBotaoLer, &ITradutorProj::Ler)
ON_BN_CLICKED(kFiltroNaoTraduzido, &ITradutorProj::OnFiltro)
ON_BN_CLICKED(kFiltroAutomatica, &ITradutorProj::OnFiltro)
ON_BN_CLICKED(kFiltroManual, &ITradutorProj::OnFiltro)
ON_BN_CLICKED(kFiltroImportado, &ITradutorProj::OnFiltro)
ON_BN_CLICKED(kEscopoTextos, &ITradutorProj::OnEscopoAlterado)
ON_BN_CLICKED(kEscopoAtributos, &ITradutorProj::OnEscopoAlterado)
ON_CBN_SELCHANGE(kListaOrigem, &ITradutorProj::OnIdiomaAlterado)
ON_CBN_SELCHANGE(kListaDestino, &ITradutorProj::OnIdiomaAlterado)
ON_NOTIFY(LVN_COLUMNCLICK, kListaExpressoes, &ITradutorProj::OnColunaClicada)
END_MESSAGE_MAP()

ITradutorProj::ITradutorProj(CWnd* pai) : CDialog(kModeloTradutorProj, pai) {}
ITradutorProj::~ITradutorProj() = default;

void ITradutorProj::DoDataExchange(CDataExchange* troca) {
    CDialog::DoDataExchange(troca);
    DDX_Control(troca, kListaExpressoes, lista);
    DDX_Control(troca, kListaOrigem, listaOrigem);
    DDX_Control(troca, kListaDestino, listaDestino);
    DDX_Control(troca, kFiltroNaoTraduzido, filtroNaoTraduzido);
    DDX_Control(troca, kFiltroAutomatica, filtroAutomatica);
    DDX_Control(troca, kFiltroManual, filtroManual);
    DDX_Control(troca, kFiltroImportado, filtroImportado);
    DDX_Control(troca, kEscopoTextos, escopoTextos);
    DDX_Control(troca, kEscopoAtributos, escopoAtributos);
}

BOOL ITradutorProj::OnInitDialog() {
    CDialog::OnInitDialog();
    lista.AddListener(this);
    for (CButton* caixa : {&filtroNaoTraduzido, &filtroAutomatica, &filtroManual, &filtroImportado,
                           &escopoTextos, &escopoAtributos}) {
        caixa->SetCheck(BST_CHECKED);
    }
    HabilitarTrabalho();
    CarregarTextos();
    PreencherLista(true);
    PreencherIdiomas();
    escopoAtributos.SetCheck(buscarAtributos ? BST_CHECKED : BST_UNCHECKED);
    escopoTextos.SetCheck(buscarTextos ? BST_CHECKED : BST_UNCHECKED);
    DefinirAlturaDasLinhas(lista);
    if (!idiomaProjeto.EqualsNoCase(kNenhumIdioma)) SelecionarIdiomaDoProjeto();
    alterado = false;
    return TRUE;
}

void ITradutorProj::CarregarTextos() {
    SetWindowText(Mensagem(kTituloTradutorProj));
    PorTextos(*this, TextosTradutorProj());
    const std::pair<TQString*, int> textos[] = {
        {&tituloEstado, 47},       {&tituloOriginal, 48}, {&tituloDestino, 49},
        {&rotuloAutomatica, 50},   {&rotuloManual, 51},   {&rotuloImportado, 52},
        {&rotuloNaoTraduzido, 53}, {&perguntaSalvar, 54}, {&avisoSalvo, 55},
        {&rotuloCsv, 56},          {&tituloImportar, 57}, {&avisoImportado, 58},
        {&tituloExportar, 59},     {&avisoExportado, 60}};
    for (const auto& [texto, numero] : textos) *texto = Mensagem(numero);
}

void ITradutorProj::HabilitarTrabalho() {
    for (const int id : kTrabalho) GetDlgItem(id)->EnableWindow(projetoLido);
}

void ITradutorProj::DesabilitarTrabalho() {
    for (const int id : kTrabalhoFeito) GetDlgItem(id)->EnableWindow(FALSE);
}

void ITradutorProj::PreencherIdiomas() {
    for (const structIdioma& idioma : idiomas) {
        if (!EmUso(idioma)) continue;
        listaOrigem.AddString(idioma.descr);
        listaDestino.AddString(idioma.descr);
    }
}

void ITradutorProj::SelecionarIdiomaDoProjeto() {
    const auto achado = std::find_if(idiomas.begin(), idiomas.end(), [&](const auto& idioma) {
        return idioma.key == idiomaProjeto;
    });
    if (achado == idiomas.end()) return;
    // The position counts all languages, the list holds those in use: behind a language out of use
    // the selection lands on a later one. This is meant.
    indiceIdiomaProjeto = static_cast<int32_t>(achado - idiomas.begin());
    listaOrigem.SetCurSel(indiceIdiomaProjeto);
    for (int i = 0; i < listaDestino.GetCount(); ++i) {
        if (TextoDe(listaDestino, i) != achado->descr) continue;
        listaDestino.DeleteString(i);
        return;
    }
}

void ITradutorProj::AtualizarDasListas() {
    AtualizarExpressoes(Selecionado(listaOrigem), Selecionado(listaDestino));
}

void ITradutorProj::OnIdiomaAlterado() {
    AtualizarDasListas();
    PreencherDestino();
    idiomaDestino = kNenhumIdioma;
    const auto nome = Selecionado(listaDestino);
    if (!nome) return;
    const auto achado = std::find_if(idiomas.begin(), idiomas.end(),
                                     [&](const auto& idioma) { return idioma.descr == *nome; });
    if (achado != idiomas.end()) idiomaDestino = achado->key;
}

void ITradutorProj::OnEscopoAlterado() {
    buscarTextos = escopoTextos.GetCheck() == BST_CHECKED;
    buscarAtributos = escopoAtributos.GetCheck() == BST_CHECKED;
}
