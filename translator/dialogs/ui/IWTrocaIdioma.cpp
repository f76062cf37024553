// The wizard's sheet: its pages, its answers, its review text.
#include "translator/dialogs/ui/IWTrocaIdioma.h"

#include <algorithm>

#include "translator/dialogs/ui/IWPConclusao.h"
#include "translator/dialogs/ui/IWPGruposDePaginas.h"
#include "translator/dialogs/ui/IWPSelecaoIdioma.h"
#include "translator/dialogs/ui/Mensagens.h"

namespace {

enum Mensagens : int32_t {
    kResumoOrigem = 74,
    kResumoDestino = 75,
    kResumoOpcoes = 76,
    kResumoGrupos = 77,
    kResumoAtributos = 78,
    kSim = 79,
    kNao = 80,
};

TQString LinhaDeOpcao(int32_t rotulo, bool valor) {
    return TQString(u"     ") + Mensagem(rotulo) + Mensagem(valor ? kSim : kNao) + u"\n";
}

}  // namespace

IMPLEMENT_DYNAMIC(IWTrocaIdioma, CPropertySheet)

BEGIN_MESSAGE_MAP(IWTrocaIdioma, CPropertySheet)
END_MESSAGE_MAP()

IWTrocaIdioma::IWTrocaIdioma(const char16_t* titulo, CWnd* pai, UINT paginaInicial)
    : CPropertySheet(titulo, pai, paginaInicial) {
    AdicionarPaginas();
}

IWTrocaIdioma::~IWTrocaIdioma() = default;

void IWTrocaIdioma::AdicionarPaginas() {
    paginaIdioma = std::make_unique<IWPSelecaoIdioma>(this);
    paginaGrupos = std::make_unique<IWPGruposDePaginas>(this);
    paginaConclusao = std::make_unique<IWPConclusao>(this);
    AddPage(paginaIdioma.get());
    AddPage(paginaGrupos.get());
    AddPage(paginaConclusao.get());
    SetTitle(u"Simple", PSH_PROPTITLE);
    m_psh.dwFlags |= PSH_WIZARD97 | PSH_WIZARDHASFINISH;
    m_psh.nPages = 3;
    m_psh.nStartPage = 0;
}

BOOL IWTrocaIdioma::OnInitDialog() {
    CPropertySheet::OnInitDialog();
    return TRUE;
}

void IWTrocaIdioma::Iniciar(const ListaIdiomas& idiomas, const TQString& idiomaOrigem,
                            const TQString& idiomaDestino) {
    paginaIdioma->Iniciar(idiomas, idiomaOrigem, idiomaDestino);
}

TQString IWTrocaIdioma::GetIdiomaDestino() const { return paginaIdioma->idiomaDestino; }
bool IWTrocaIdioma::GetRedefinirGrupos() const { return paginaGrupos->redefinirGrupos; }
bool IWTrocaIdioma::GetTraduzirAtributos() const { return paginaGrupos->traduzirAtributos; }

TQString IWTrocaIdioma::NomeDe(const TQString& chave) const {
    const ListaIdiomas& idiomas = paginaIdioma->idiomas;
    const auto achado = std::find_if(idiomas.begin(), idiomas.end(),
                                     [&](const auto& idioma) { return idioma.key == chave; });
    return achado == idiomas.end() ? TQString() : achado->descr;
}

TQString IWTrocaIdioma::TextoResumo() const {
    TQString texto = Mensagem(kResumoOrigem) + NomeDe(paginaIdioma->idiomaOrigem) + u"\n";
    texto += Mensagem(kResumoDestino) + NomeDe(paginaIdioma->idiomaDestino) + u"\n\n\n";
    texto += Mensagem(kResumoOpcoes) + u"\n";
    texto += LinhaDeOpcao(kResumoGrupos, GetRedefinirGrupos());
    texto += LinhaDeOpcao(kResumoAtributos, GetTraduzirAtributos());
    return texto;
}
