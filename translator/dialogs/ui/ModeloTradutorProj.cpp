// Template 212: the project translation dialog.
#include "translator/dialogs/ui/ModeloTradutorProj.h"

#include "platform/window/DialogTemplate.h"

namespace {

using enum ControlKind;

constexpr int kTraco = 8;  // height of a line of text

constexpr DialogControl kControles[] = {
    {GroupBox, kGrupoConfiguracoes, u"Configurações:", 7, 7, 297, 56},
    {LeftText, kRotuloTraduzir, u"Traduzir:", 21, 20, 66, kTraco},
    {LeftText, kRotuloOriginal, u"Original:", 26, 34, 64, kTraco},
    {DropDownList, kListaOrigem, u"", 26, 42, 85, 30, WS_DISABLED},
    {LeftText, kRotuloPara, u"Para:", 128, 33, 58, kTraco},
    {DropDownList, kListaDestino, u"", 128, 42, 84, 30},
    {LeftText, kRotuloBuscarEm, u"Buscar em:", 233, 20, 61, kTraco},
    {AutoCheckBox, kEscopoTextos, u"Textos", 240, 31, 57, 10},
    {AutoCheckBox, kEscopoAtributos, u"Atributos", 240, 44, 57, 10},
    {GroupBox, kGrupoFiltrar, u"Filtrar por:", 309, 7, 164, 56},
    {AutoCheckBox, kFiltroNaoTraduzido, u"Não Traduzido", 321, 20, 82, 10},
    {AutoCheckBox, kFiltroAutomatica, u"Tradução Automática", 321, 33, 108, 10},
    {AutoCheckBox, kFiltroManual, u"Tradução Manual", 321, 46, 101, 10},
    {AutoCheckBox, kFiltroImportado, u"Importado", 411, 20, 59, 10},
    {LeftText, kRotuloExpressoes, u"Expressões:", 21, 65, 82, kTraco},
    {ListView, kListaExpressoes, u"", 7, 75, 466, 173, LVS_REPORT | LVS_SINGLESEL | WS_BORDER},
    {GroupBox, kGrupoArquivos, u"Arquivos:", 107, 253, 120, 32},
    {PushButton, kBotaoExportar, u"Exportar", 115, 265, 50, 14},
    {PushButton, kBotaoImportar, u"Importar", 168, 265, 50, 14},
    {GroupBox, kGrupoDicionario, u"Dicionário:", 230, 253, 120, 32},
    {PushButton, kBotaoCarregar, u"Carregar", 238, 265, 50, 14},
    {PushButton, kBotaoSalvar, u"Salvar", 291, 265, 50, 14},
    {GroupBox, kGrupoDicionarioProjeto, u"Dicionário do Projeto:", 353, 253, 120, 32},
    {PushButton, kBotaoCarregarProjeto, u"Carregar", 364, 265, 50, 14},
    {PushButton, kBotaoSalvarProjeto, u"Salvar", 417, 265, 50, 14},
    {PushButton, kBotaoLer, u"Ler", 267, 290, 50, 14},
    {PushButton, kBotaoTraduzir, u"Traduzir", 319, 290, 50, 14},
    {PushButton, kBotaoSubstituir, u"Substituir", 371, 290, 50, 14},
    {PushButton, kBotaoFechar, u"Fechar", 423, 290, 50, 14},
};

constexpr DialogTemplate kModelo = {kModeloTradutorProj,        u"Tradução", 480, 311,
                                    WS_THICKFRAME | WS_CAPTION, kControles};

const DialogResource kRecurso(kModelo);

constexpr TextoDeControle kTextos[] = {
    {kGrupoConfiguracoes, 28},   {kRotuloTraduzir, 29},
    {kRotuloBuscarEm, 30},       {kRotuloOriginal, 31},
    {kRotuloPara, 32},           {kEscopoTextos, 33},
    {kEscopoAtributos, 34},      {kGrupoFiltrar, 35},
    {kFiltroNaoTraduzido, 36},   {kFiltroAutomatica, 37},
    {kFiltroManual, 38},         {kFiltroImportado, 39},
    {kRotuloExpressoes, 40},     {kBotaoLer, 41},
    {kBotaoExportar, 42},        {kBotaoImportar, 43},
    {kBotaoSalvar, 44},          {kBotaoSalvarProjeto, 44},
    {kBotaoTraduzir, 45},        {kBotaoFechar, 46},
    {kBotaoSubstituir, 62},      {kBotaoCarregar, 63},
    {kBotaoCarregarProjeto, 63}, {kGrupoArquivos, 82},
    {kGrupoDicionario, 83},      {kGrupoDicionarioProjeto, 84},
};

}  // namespace

std::span<const TextoDeControle> TextosTradutorProj() { return kTextos; }
