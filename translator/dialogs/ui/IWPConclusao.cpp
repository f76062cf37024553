// The wizard's last page, template 216.
#include "translator/dialogs/ui/IWPConclusao.h"

#include "translator/dialogs/ui/IWTrocaIdioma.h"

namespace {

using enum ControlKind;

constexpr int kTextoResumo = 263;

constexpr unsigned kModeloConclusao = 216;
constexpr DialogControl kControles[] = {
    {ListBox, kListaPassos, u"", 0, 0, 94, 134},
    {LeftText, kTextoResumo, u"", 124, 28, 145, 100},
};
constexpr DialogTemplate kModelo = {kModeloConclusao, u"", 276, 135, WS_CHILD, kControles};
const DialogResource kRecurso(kModelo);

constexpr uint32_t kNumero = 100;
constexpr int kPasso = 2;

}  // namespace

IMPLEMENT_DYNAMIC(IWPConclusao, IWPagina)

BEGIN_MESSAGE_MAP(IWPConclusao, IWPagina)
END_MESSAGE_MAP()

IWPConclusao::IWPConclusao(IWTrocaIdioma* assistente)
    : IWPagina(assistente, kModeloConclusao, kNumero, kPasso,
               TituloDoCabecalho("IWPConclusao", "Settings Review"), {}) {}

BOOL IWPConclusao::OnSetActive() {
    const BOOL mostrada = IWPagina::OnSetActive();
    GetDlgItem(kTextoResumo)->SetWindowText(assistente->TextoResumo());
    return mostrada;
}
