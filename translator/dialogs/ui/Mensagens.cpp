// Message boxes of the dialogs.
#include "translator/dialogs/ui/Mensagens.h"

#include "platform/kernel/MxSystemServices.h"
#include "translator/cad/CICad.h"
#include "translator/cad/ui/ParentWindow.h"

namespace {

template <class Caixa>
int Mostrar(Caixa caixa, const TQString& texto, int botoes) {
    return caixa(MainWidget(), GetMxSystemServices()->GetApplicationInfo()->GetApplicationName(),
                 texto, botoes, 0);
}

}  // namespace

void Avisar(const TQString& texto) { Mostrar(CMxMessageBox::information, texto, kButtonOk); }

int Perguntar(const TQString& texto, int botoes) {
    return Mostrar(CMxMessageBox::question, texto, botoes);
}

TQString Mensagem(int32_t numero) { return tq::CICad().GetMensagem(numero); }
