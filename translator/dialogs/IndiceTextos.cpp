// Finds for each text of a list the first one that is equal.
#include "translator/dialogs/IndiceTextos.h"

#include <utility>

#include "translator/dialogs/AnteciparMemoria.h"

namespace traducaoTQ {

namespace {

// How many texts ahead the slot, the view of the text in it, and both texts are fetched.
constexpr size_t kDistanciaCasa = 24, kDistanciaVista = 16, kDistanciaTexto = 8;

// Texts of a drawing are short: the first and the last line of memory are mostly all.
void AnteciparTexto(std::u16string_view texto) {
    AnteciparMemoria(texto.data());
    AnteciparMemoria(texto.data() + texto.size());
}

uint32_t MarcaDe(size_t hash) { return static_cast<uint32_t>(hash); }
size_t ParteDe(size_t hash) { return hash >> 63; }

}  // namespace

IndiceTextos::IndiceTextos(Vistas vistas, const FazerAmbos& fazerAmbos)
    : textos(std::move(vistas)), primeiros(textos.size()) {
    const size_t meio = textos.size() / 2;
    std::array<Entradas, 2> metades;
    fazerAmbos([&] { metades[0] = Separar(textos, 0, meio); },
               [&] { metades[1] = Separar(textos, meio, textos.size()); });
    const auto entrar = [&](size_t parte) {
        for (const Entradas& metade : metades) Entrar(partes[parte], metade[parte]);
    };
    fazerAmbos([&] { entrar(0); }, [&] { entrar(1); });
}

IndiceTextos::Entradas IndiceTextos::Separar(const Vistas& textos, size_t inicio, size_t fim) {
    Entradas entradas;
    for (auto& parte : entradas) parte.reserve((fim - inicio) / 2 + (fim - inicio) / 16);
    for (size_t i = inicio; i < fim; ++i) {
        if (i + kDistanciaTexto < fim) AnteciparTexto(textos[i + kDistanciaTexto]);
        const size_t hash = std::hash<std::u16string_view>()(textos[i]);
        entradas[ParteDe(hash)].push_back({hash, static_cast<uint32_t>(i)});
    }
    return entradas;
}

// The place that the slot of the text with that hash holds, unless texts differ that have the same
// half of the hash: looks at no text.
uint32_t IndiceTextos::LugarPelaMarca(const Parte& parte, size_t hash) {
    const size_t ultima = parte.casas.size() - 1;
    size_t numero = hash & ultima;
    while (parte.casas[numero].lugar != 0 && parte.casas[numero].marca != MarcaDe(hash)) {
        numero = (numero + 1) & ultima;
    }
    return parte.casas[numero].lugar;
}

void IndiceTextos::Antecipar(const Vistas& textos, const Vistas& conhecidos, const Parte& parte,
                             const std::vector<Entrada>& entradas, size_t proxima) {
    if (proxima + kDistanciaCasa >= entradas.size()) return;
    const auto hash = [&](size_t distancia) { return entradas[proxima + distancia].hash; };
    AnteciparMemoria(&parte.casas[hash(kDistanciaCasa) & (parte.casas.size() - 1)]);
    if (const uint32_t lugar = LugarPelaMarca(parte, hash(kDistanciaVista))) {
        AnteciparMemoria(&conhecidos[lugar - 1]);
    }
    if (const uint32_t lugar = LugarPelaMarca(parte, hash(kDistanciaTexto))) {
        AnteciparTexto(conhecidos[lugar - 1]);
        AnteciparTexto(textos[entradas[proxima + kDistanciaTexto].lugar]);
    }
}

void IndiceTextos::Entrar(Parte& parte, const std::vector<Entrada>& entradas) {
    for (size_t i = 0; i < entradas.size(); ++i) {
        Antecipar(textos, textos, parte, entradas, i);
        const auto [hash, lugar] = entradas[i];
        Casa& casa = parte.casas[CasaDe(parte, textos, textos[lugar], hash)];
        const bool nova = casa.lugar == 0;
        if (nova) casa = {MarcaDe(hash), lugar + 1};
        primeiros[lugar] = casa.lugar - 1;
        if (nova && ++parte.ocupadas * 2 > parte.casas.size()) Dobrar(parte);
    }
}

void IndiceTextos::Dobrar(Parte& parte) {
    const std::vector<Casa> antigas =
        std::exchange(parte.casas, std::vector<Casa>(parte.casas.size() * 2));
    const size_t ultima = parte.casas.size() - 1;
    for (const Casa& casa : antigas) {
        if (casa.lugar == 0) continue;
        size_t numero = casa.marca & ultima;
        while (parte.casas[numero].lugar != 0) numero = (numero + 1) & ultima;
        parte.casas[numero] = casa;
    }
}

std::vector<uint32_t> IndiceTextos::Procurar(const Vistas& outros) const {
    std::vector<uint32_t> achados(outros.size());
    const Entradas entradas = Separar(outros, 0, outros.size());
    for (size_t p = 0; p < partes.size(); ++p) {
        for (size_t i = 0; i < entradas[p].size(); ++i) {
            Antecipar(outros, textos, partes[p], entradas[p], i);
            const auto [hash, lugar] = entradas[p][i];
            const Casa& casa = partes[p].casas[CasaDe(partes[p], textos, outros[lugar], hash)];
            achados[lugar] = casa.lugar == 0 ? kNenhum : casa.lugar - 1;
        }
    }
    return achados;
}

size_t IndiceTextos::CasaDe(const Parte& parte, const Vistas& conhecidos, std::u16string_view texto,
                            size_t hash) {
    const size_t ultima = parte.casas.size() - 1;
    size_t numero = hash & ultima;
    while (parte.casas[numero].lugar != 0) {
        const Casa& casa = parte.casas[numero];
        if (casa.marca == MarcaDe(hash) && conhecidos[casa.lugar - 1] == texto) break;
        numero = (numero + 1) & ultima;
    }
    return numero;
}

}  // namespace traducaoTQ
