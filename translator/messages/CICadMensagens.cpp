// The texts that tq::CICad fetches by number.
#include "translator/cad/CICad.h"
#include "translator/messages/CCMsg.h"

namespace tq {

TQString CICad::GetMensagem(int32_t number) {
    static const TQString module(u"TQTRADUTOR");
    return CCMsg().getMensagem(module, TQString(number, 0));
}

TQString CICad::GetMensagemINC(int32_t number) {
    static const TQString module(u"TQINC");
    return CCMsg().getMensagem(module, TQString(number, 0));
}

}  // namespace tq
