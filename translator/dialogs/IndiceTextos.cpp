// Numbers texts in the order of their first arrival: open addressing with linear probing.
#include "translator/dialogs/IndiceTextos.h"

#include <bit>
#include <functional>

namespace traducaoTQ {

namespace {

// How many texts ahead the place in the table, the view and the text itself are fetched.
constexpr size_t kDistanciaCasa = 24, kDistanciaVista = 16, kDistanciaTexto = 8;

// Texts of a drawing are short: the first and the last line of memory are mostly all.
void AnteciparTexto(std::u16string_view texto) {
    __builtin_prefetch(texto.data());
    __builtin_prefetch(texto.data() + texto.size());
}

uint32_t MarcaDe(size_t hash) { return static_cast<uint32_t>(hash >> 32); }

std::vector<size_t> HashesDe(const IndiceTextos::Vistas& textos) {
    std::vector<size_t> hashes;
    hashes.reserve(textos.size() + kDistanciaCasa);
    for (size_t i = 0; i < textos.size(); ++i) {
        if (i + kDistanciaTexto < textos.size()) AnteciparTexto(textos[i + kDistanciaTexto]);
        hashes.push_back(std::hash<std::u16string_view>()(textos[i]));
    }
    hashes.resize(textos.size() +
                  kDistanciaCasa);  // so that fetching ahead need not look for the end
    return hashes;
}

}  // namespace

IndiceTextos::IndiceTextos(const Vistas& textos, std::vector<uint32_t>& numeros)
    : casas(std::bit_ceil(2 * textos.size() + 1)) {
    numerados.reserve(textos.size());
    numeros.reserve(textos.size());
    ParaCadaLugar(textos, [&](std::u16string_view texto, size_t hash, size_t lugar) {
        Casa& casa = casas[lugar];
        if (casa.numero == 0) {
            numerados.push_back(texto);
            casa = {MarcaDe(hash), static_cast<uint32_t>(numerados.size())};
        }
        numeros.push_back(casa.numero - 1);
    });
}

std::vector<uint32_t> IndiceTextos::Procurar(const Vistas& textos) const {
    std::vector<uint32_t> numeros;
    numeros.reserve(textos.size());
    ParaCadaLugar(textos, [&](std::u16string_view, size_t, size_t lugar) {
        const uint32_t numero = casas[lugar].numero;
        numeros.push_back(numero == 0 ? kNenhum : numero - 1);
    });
    return numeros;
}

template <class Visita>
void IndiceTextos::ParaCadaLugar(const Vistas& textos, Visita visita) const {
    const std::vector<size_t> hashes = HashesDe(textos);
    for (size_t i = 0; i < textos.size(); ++i) {
        Antecipar(hashes, i);
        visita(textos[i], hashes[i], LugarDe(textos[i], hashes[i]));
    }
}

void IndiceTextos::Antecipar(const std::vector<size_t>& hashes, size_t proximo) const {
    const auto casa = [&](size_t distancia) -> const Casa& {
        return casas[hashes[proximo + distancia] & (casas.size() - 1)];
    };
    __builtin_prefetch(&casa(kDistanciaCasa));
    if (const uint32_t numero = casa(kDistanciaVista).numero) {
        __builtin_prefetch(&numerados[numero - 1]);
    }
    if (const uint32_t numero = casa(kDistanciaTexto).numero) {
        AnteciparTexto(numerados[numero - 1]);
    }
}

size_t IndiceTextos::LugarDe(std::u16string_view texto, size_t hash) const {
    const size_t ultima = casas.size() - 1;
    size_t lugar = hash & ultima;
    while (casas[lugar].numero != 0) {
        const Casa& casa = casas[lugar];
        if (casa.marca == MarcaDe(hash) && numerados[casa.numero - 1] == texto) break;
        lugar = (lugar + 1) & ultima;
    }
    return lugar;
}

}  // namespace traducaoTQ
