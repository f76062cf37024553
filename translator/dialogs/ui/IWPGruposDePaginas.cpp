// The wizard's second page, template 215.
#include "translator/dialogs/ui/IWPGruposDePaginas.h"

#include "platform/window/CDataExchange.h"

namespace {

using enum ControlKind;

enum ControlesGrupos : int { kCaixaGrupos = 261, kCaixaAtributos = 262 };

constexpr unsigned kModeloGrupos = 215;
constexpr DialogControl kControles[] = {
    {ListBox, kListaPassos, u"", 0, 0, 94, 134},
    {AutoCheckBox, kCaixaGrupos, u"Redefinir Grupos de Páginas", 128, 54, 141, 10},
    {AutoCheckBox, kCaixaAtributos, u"Traduzir Atributos", 128, 71, 141, 10},
};
constexpr DialogTemplate kModelo = {kModeloGrupos, u"", 276, 135, WS_CHILD, kControles};
const DialogResource kRecurso(kModelo);

constexpr TextoDeControle kTextos[] = {{kCaixaGrupos, 71}, {kCaixaAtributos, 72}};

}  // namespace

IMPLEMENT_DYNAMIC(IWPGruposDePaginas, IWPagina)

BEGIN_MESSAGE_MAP(IWPGruposDePaginas, IWPagina)
ON_BN_CLICKED(kCaixaGrupos, &IWPGruposDePaginas::OnOpcao)
ON_BN_CLICKED(kCaixaAtributos, &IWPGruposDePaginas::OnOpcao)
END_MESSAGE_MAP()

IWPGruposDePaginas::IWPGruposDePaginas(IWTrocaIdioma* assistente)
    : IWPagina(assistente, kModeloGrupos, 1, 1,
               TituloDoCabecalho("IWPGruposDePaginas", "Page groups"), kTextos) {}

void IWPGruposDePaginas::DoDataExchange(CDataExchange* troca) {
    IWPagina::DoDataExchange(troca);
    DDX_Control(troca, kCaixaGrupos, caixaGrupos);
    DDX_Control(troca, kCaixaAtributos, caixaAtributos);
}

void IWPGruposDePaginas::OnPrimeiraVez() {
    caixaGrupos.SetCheck(BST_CHECKED);
    caixaAtributos.SetCheck(BST_CHECKED);
    OnOpcao();
}

void IWPGruposDePaginas::OnOpcao() {
    redefinirGrupos = caixaGrupos.GetCheck() == BST_CHECKED;
    traduzirAtributos = caixaAtributos.GetCheck() == BST_CHECKED;
}
