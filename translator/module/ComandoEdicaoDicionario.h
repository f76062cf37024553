// ComandoEdicaoDicionario: the command KVTRANSLATEEDITDIC, the editor of the dictionary.
#pragma once

void ComandoEdicaoDicionario();
