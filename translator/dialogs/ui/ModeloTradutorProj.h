// Template 212, the project translation dialog: ids, places and catalogue texts of its controls.
#pragma once

#include <span>

#include "translator/dialogs/ui/Controles.h"

enum ControlesTradutorProj : int {
    kGrupoConfiguracoes = 265,
    kRotuloTraduzir = 266,
    kRotuloBuscarEm = 267,
    kRotuloOriginal = 268,
    kRotuloPara = 269,
    kGrupoFiltrar = 270,
    kRotuloExpressoes = 271,
    kListaExpressoes = 221,
    kListaOrigem = 222,
    kListaDestino = 223,
    kEscopoTextos = 224,
    kEscopoAtributos = 225,
    kFiltroNaoTraduzido = 226,
    kFiltroAutomatica = 227,
    kFiltroManual = 228,
    kFiltroImportado = 229,
    kBotaoLer = 230,
    kBotaoExportar = 231,
    kBotaoImportar = 232,
    kBotaoTraduzir = 234,
    kBotaoFechar = 235,
    kBotaoSubstituir = 236,
    kBotaoCarregar = 244,
    kBotaoSalvar = 246,
    kBotaoSalvarProjeto = 249,
    kBotaoCarregarProjeto = 272,
    kGrupoDicionarioProjeto = 273,
    kGrupoDicionario = 274,
    kGrupoArquivos = 275,
};

inline constexpr unsigned kModeloTradutorProj = 212;
inline constexpr int kTituloTradutorProj = 61;

std::span<const TextoDeControle> TextosTradutorProj();
