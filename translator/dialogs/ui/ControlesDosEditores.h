// Ids of the controls of the two editors.
#pragma once

enum ControlesDosEditores : int {
    kBotaoOK = 209,
    kBotaoCancelar = 210,
    kBotaoAplicar = 211,
    kRotuloLista = 265,
    // Of the languages alone, and of the dictionary alone.
    kListaIdiomas = 218,
    kBotaoAdicionar = 219,
    kBotaoRemover = 220,
    kListaTermos = 221,
};
