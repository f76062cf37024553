// CTQTradutor: the translation module, an entry point with four commands.
#pragma once

#include "translator/module/CCEntryPoint.h"

class CTQTradutor : public CCEntryPoint {
  public:
    void registarComandos() override;  // needs the services of the product
    void removerComandos() override;   // without them does nothing
};
