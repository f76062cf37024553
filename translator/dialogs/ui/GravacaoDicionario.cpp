// The save of the dictionary editor: the grid compared with the terms as they were read. Rows and
// terms are matched by key alone, so the order of the rows does not matter.
#include <unordered_map>
#include <unordered_set>

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

IEdicaoDicionario::Diferencas IEdicaoDicionario::CompararComLista() const {
    std::unordered_map<TQString, const structTermo*> termos;
    for (const structTermo& termo : traducoes->terms)
        termos.emplace(TQString(termo.key, 1), &termo);
    Diferencas diferencas;
    std::unordered_set<TQString> chaves;
    for (int linha = 0; linha < lista.GetItemCount(); ++linha) {
        const TQString chave = lista.GetChave(linha, 0);
        chaves.insert(chave);
        if (chave == kChaveNova) {
            diferencas.linhasNovas.push_back(linha);
            continue;
        }
        const auto achado = termos.find(chave);
        if (achado == termos.end() || !LinhaDifere(linha, *achado->second)) continue;
        diferencas.linhasAlteradas.push_back(linha);
        diferencas.termosAlterados.push_back(*achado->second);
    }
    for (const structTermo& termo : traducoes->terms) {
        if (!chaves.count(TQString(termo.key, 1))) diferencas.termosRemovidos.push_back(termo);
    }
    return diferencas;
}
