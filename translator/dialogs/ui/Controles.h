// What the dialogs' controls have in common: texts of the catalogue, selected texts, row height.
#pragma once

#include <optional>
#include <span>

#include "platform/window/CComboBox.h"
#include "platform/window/CListCtrl.h"
#include "translator/cad/TQString.h"
#include "translator/langdb/IBDIdiomas.h"

struct TextoDeControle {
    int id;
    int mensagem;
};

// Gives every control of the table its text of the catalogue.
void PorTextos(CWnd& janela, std::span<const TextoDeControle> textos);

bool EmUso(const traducaoTQ::IBDIdiomas::structIdioma& idioma);

std::optional<TQString> TextoDe(const CComboBox& lista, int posicao);
std::optional<TQString> Selecionado(const CComboBox& lista);  // none without a selection

void ApagarColunas(CListCtrl& lista);

// Rows of 16 pixels, by images of that height.
void DefinirAlturaDasLinhas(CListCtrl& lista);
