// The comparison of two list rows, by keys that lie close together.
#include "translator/dialogs/ui/OrdemDeLista.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/Conversion.h"

namespace {

// A sort of many rows spends its time waiting for their memory: it goes through all of them again
// and again. The beginnings of the texts alone fit into the processor's caches, and mostly decide.
class ChavesDeOrdem {
  public:
    ChavesDeOrdem(const CListCtrl& lista, int coluna) {
        const int quantidade = lista.GetItemCount();
        chaves.reserve(static_cast<size_t>(quantidade));
        for (int linha = 0; linha < quantidade; ++linha) {
            const std::u16string texto = text::FoldCase(lista.GetItemText(linha, coluna).Text());
            chaves.push_back({InicioDe(texto), textos.size(), texto.size()});
            textos += texto;
        }
    }

    int Comparar(int a, int b) const {
        const Chave& chaveA = chaves[static_cast<size_t>(a)];
        const Chave& chaveB = chaves[static_cast<size_t>(b)];
        if (chaveA.inicio != chaveB.inicio) return chaveA.inicio < chaveB.inicio ? -1 : 1;
        return text::CompareNoCase(TextoDe(chaveA), TextoDe(chaveB));
    }

  private:
    struct Chave {
        uint64_t inicio;
        size_t lugar, tamanho;
    };

    // Ordered like the first three code points; what is not there counts as 0.
    static uint64_t InicioDe(std::u16string_view texto) {
        constexpr int kPontos = 3, kBits = 21;
        uint64_t inicio = 0;
        size_t i = 0;
        for (int ponto = 0; ponto < kPontos; ++ponto) {
            inicio = inicio << kBits | (i < texto.size() ? text::NextCodePoint(texto, i) : 0);
        }
        return inicio;
    }
    std::u16string_view TextoDe(const Chave& chave) const {
        return std::u16string_view(textos).substr(chave.lugar, chave.tamanho);
    }

    std::vector<Chave> chaves;  // by row
    std::u16string textos;      // folded
};

const ChavesDeOrdem* chavesDaOrdenacao = nullptr;  // while a list is being sorted

int LinhaDoDado(const CListCtrl& lista, LPARAM dado) {
    LVFINDINFO procurado;
    procurado.flags = LVFI_PARAM;
    procurado.lParam = dado;
    return lista.FindItem(&procurado);
}

}  // namespace

void OrdenarPorColuna(CListCtrl& lista, PFNLVCOMPARE comparar, int coluna) {
    const ChavesDeOrdem chaves(lista, coluna);
    chavesDaOrdenacao = &chaves;
    lista.SortItems(comparar, coluna);
    chavesDaOrdenacao = nullptr;
}

int CompararTextos(const CListCtrl& lista, LPARAM a, LPARAM b, bool crescente) {
    const int linhaA = LinhaDoDado(lista, a);
    const int linhaB = LinhaDoDado(lista, b);
    if (linhaA < 0 || linhaB < 0) return 0;
    const int ordem = chavesDaOrdenacao->Comparar(linhaA, linhaB);
    return crescente ? ordem : -ordem;
}
