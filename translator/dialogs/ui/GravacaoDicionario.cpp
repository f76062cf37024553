// The save of the dictionary editor: the grid compared with the terms as they were read. Rows and
// terms are matched by key alone, so the order of the rows does not matter.
#include <unordered_map>

#include "translator/dialogs/ui/IEdicaoDicionario.h"

using traducaoTQ::IBDIdiomas;

struct IEdicaoDicionario::Diferencas {
    std::vector<int> linhasNovas;
    std::vector<int> linhasAlteradas;
    std::vector<structTermo> termosAlterados;  // of linhasAlteradas, at the same position
    std::vector<structTermo> termosRemovidos;
};

// Five passes whose order shows in the database: rows, terms, inserts, deletes, updates.
void IEdicaoDicionario::SalvarAlteracoes() {
    if (traducoes->languages.empty()) return;
    Diferencas diferencas = CompararComLista();
    IBDIdiomas banco;
    for (const int linha : diferencas.linhasNovas) {
        structTermo termo;
        termo.translations.resize(traducoes->languages.size());
        LerLinha(linha, termo);
        banco.InsertTerm(termo);
    }
    for (structTermo& termo : diferencas.termosRemovidos) banco.DeleteTerm(termo);
    for (size_t i = 0; i < diferencas.linhasAlteradas.size(); ++i) {
        structTermo& termo = diferencas.termosAlterados[i];
        LerLinha(diferencas.linhasAlteradas[i], termo);
        banco.UpdateTerm(termo);
    }
}

// Overwrites the term's translations with the cells of the row.
void IEdicaoDicionario::LerLinha(int linha, structTermo& termo) const {
    for (size_t coluna = 0; coluna < traducoes->languages.size(); ++coluna) {
        termo.translations.at(coluna) = lista.GetItemText(linha, static_cast<int>(coluna));
    }
}

bool IEdicaoDicionario::LinhaDifere(int linha, const structTermo& termo) const {
    for (size_t coluna = 0; coluna < termo.translations.size(); ++coluna) {
        const CString texto = lista.GetItemText(linha, static_cast<int>(coluna));
        if (!(termo.translations[coluna] == texto)) return true;
    }
    return false;
}

// The key of a row is that of its term, as AcrescentarLinha has written it.
IEdicaoDicionario::Diferencas IEdicaoDicionario::CompararComLista() const {
    const std::vector<structTermo>& termos = traducoes->terms;
    std::unordered_map<int32_t, size_t> posicoes;
    for (size_t i = 0; i < termos.size(); ++i) posicoes.emplace(termos[i].key, i);
    std::vector<bool> temLinha(termos.size());
    Diferencas diferencas;
    for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
        const TQString chave = lista.GetChave(linha, 0);
        if (chave == kChaveNova) {
            diferencas.linhasNovas.push_back(linha);
            continue;
        }
        const auto achado = posicoes.find(chave.ToInt());
        if (achado == posicoes.end()) continue;
        temLinha[achado->second] = true;
        const structTermo& termo = termos[achado->second];
        if (!LinhaDifere(linha, termo)) continue;
        diferencas.linhasAlteradas.push_back(linha);
        diferencas.termosAlterados.push_back(termo);
    }
    for (size_t i = 0; i < termos.size(); ++i) {
        if (!temLinha[i]) diferencas.termosRemovidos.push_back(termos[i]);
    }
    return diferencas;
}
