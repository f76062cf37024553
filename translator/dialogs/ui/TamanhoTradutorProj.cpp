// The project translation dialog at another size: what moves, what grows, what repaints.
#include "translator/dialogs/ui/ITradutorProj.h"
#include "translator/dialogs/ui/ModeloTradutorProj.h"

namespace {

// The top left corner of a control, in pixels back from the right and from the bottom edge.
struct Ancora {
    int id;
    int direita;
    int base;
};

constexpr Ancora kAncoras[] = {
    {kBotaoFechar, 85, 33},    {kBotaoSubstituir, 163, 33},        {kBotaoTraduzir, 241, 33},
    {kBotaoLer, 319, 33},      {kGrupoDicionarioProjeto, 191, 93}, {kGrupoDicionario, 375, 93},
    {kGrupoArquivos, 559, 93}, {kBotaoSalvarProjeto, 98, 74},      {kBotaoCarregarProjeto, 176, 74},
    {kBotaoSalvar, 282, 74},   {kBotaoCarregar, 360, 74},          {kBotaoImportar, 466, 74},
    {kBotaoExportar, 544, 74},
};

constexpr UINT kSoMover = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
constexpr UINT kSoTamanho = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;

// Every second size of any dialog repaints it whole; those between repaint what moved.
int contadorDeRepinturas = 0;

}  // namespace

void ITradutorProj::OnSize(UINT, int cx, int cy) {
    if (larguraMinima == 0 && alturaMinima == 0) {
        larguraMinima = cx + 8;
        alturaMinima = cy + 33;
    }
    for (const Ancora& ancora : kAncoras) {
        GetDlgItem(ancora.id)->SetWindowPos(nullptr, cx - ancora.direita, cy - ancora.base, 0, 0,
                                            kSoMover);
    }
    lista.SetWindowPos(nullptr, 0, 0, cx - 20, cy - 223, kSoTamanho);
    if (++contadorDeRepinturas < 2) {
        for (const Ancora& ancora : kAncoras) GetDlgItem(ancora.id)->Invalidate(TRUE);
        lista.Invalidate(TRUE);
        return;
    }
    Invalidate(TRUE);
    contadorDeRepinturas = 0;
}

void ITradutorProj::OnSizing(UINT, RECT* retangulo) {
    if (larguraMinima == 0 || alturaMinima == 0) return;
    if (retangulo->right - retangulo->left < larguraMinima) {
        retangulo->right = retangulo->left + larguraMinima;
    }
    if (retangulo->bottom - retangulo->top < alturaMinima) {
        retangulo->bottom = retangulo->top + alturaMinima;
    }
}
