// IWPConclusao: the wizard's last page, the review of what was chosen.
#pragma once

#include "translator/dialogs/ui/IWPagina.h"

class IWPConclusao : public IWPagina {
    DECLARE_DYNAMIC(IWPConclusao)

  public:
    explicit IWPConclusao(IWTrocaIdioma* assistente);

    BOOL OnSetActive() override;  // writes the review anew each time

  protected:
    DECLARE_MESSAGE_MAP()
};
