// Page groups and their blocks.
#include "translator/engine/GruposDePaginas.h"

#include <array>

#include "platform/kernel/MxSystemServices.h"
#include "translator/cad/CICad.h"
#include "translator/langdb/IBDIdiomas.h"

namespace traducaoTQ {

namespace {

struct BlocoDeGrupo {
    const char16_t* nome;
    TQString (IBDIdiomas::*caminho)(TQString grupo, TQString idioma);
};
// In the order in which they are worked on.
constexpr std::array BLOCOS = {
    BlocoDeGrupo{u"FORMATO", &IBDIdiomas::GetPageGroupFormato},
    BlocoDeGrupo{u"SELO", &IBDIdiomas::GetPageGroupSelo},
    BlocoDeGrupo{u"DE", &IBDIdiomas::GetPageGroupDe},
    BlocoDeGrupo{u"PAGINA", &IBDIdiomas::GetPageGroupPagina},
    BlocoDeGrupo{u"IDENTIFY", &IBDIdiomas::GetPageGroupIdentify},
};

}  // namespace

void RedefinePageGroups(CString idioma) {
    std::vector<TQString> grupos = IBDIdiomas().GetPageGroupKeys();
    while (!grupos.empty()) {
        RedefinePageGroup(idioma, grupos.back());
        grupos.pop_back();
    }
    tq::CICad().Regen();
}

void RedefinePageGroup(CString idioma, CString grupo) {
    const TQString pasta = tq::CICad().GetVarStr(u"*DIRETORIO_REDE*", u"", ACTIVE_DOCUMENT());
    std::array<TQString, BLOCOS.size()> arquivos, caminhos;
    arquivos.fill(pasta);
    IBDIdiomas banco;
    for (size_t i = 0; i < BLOCOS.size(); ++i) {
        caminhos[i] = (banco.*BLOCOS[i].caminho)(grupo, idioma);
        caminhos[i].Trim();
    }
    for (size_t i = 0; i < BLOCOS.size(); ++i) arquivos[i] += caminhos[i];
    for (TQString& arquivo : arquivos) arquivo += u".dwg";
    for (size_t i = 0; i < BLOCOS.size(); ++i) {
        TQString bloco = BLOCOS[i].nome;
        bloco.Trim();
        if (!bloco.IsEmpty()) bloco += TQString(u"_") + TQString(grupo);
        caminhos[i].Trim();
        if (!caminhos[i].IsEmpty()) RedefineBlock(bloco, arquivos[i], false);
    }
}

void RedefineBlock(CString bloco, CString caminho, bool regenerar) {
    tq::CICad().RedefinirBloco(TQString(caminho), TQString(bloco));
    if (regenerar) tq::CICad().Regen();
}

}  // namespace traducaoTQ
