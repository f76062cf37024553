// Finds for each text of a list the first one that is equal.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "translator/dialogs/EmPartes.h"

namespace traducaoTQ {

// Made for hundreds of thousands of texts, where most of the time goes into waiting for memory: a
// few dense arrays in place of a node per text, and whole lists at a time, so that the memory of
// the next texts is fetched while one is compared. The texts are viewed and must outlive the index.
class IndiceTextos {
  public:
    using Vistas = std::vector<std::u16string_view>;
    static constexpr uint32_t kNenhum = 0xFFFFFFFF;

    explicit IndiceTextos(Vistas vistas, const FazerAmbos& fazerAmbos = UmDepoisDoOutro);

    // [i] is the place of the first text that equals text i: i itself where it is the first.
    const std::vector<uint32_t>& Primeiros() const { return primeiros; }

    // The place of the first text that equals each of these; kNenhum for an unknown one.
    std::vector<uint32_t> Procurar(const Vistas& outros) const;

  private:
    struct Casa {
        uint32_t marca = 0;  // half of the hash
        uint32_t lugar = 0;  // of the text, from 1 on; 0: free
    };
    // Half of the texts, by a bit of their hashes: open addressing with linear probing. It grows
    // with the texts that differ, since most texts of a drawing are equal to others and a small
    // table stays near the processor.
    struct Parte {
        std::vector<Casa> casas = std::vector<Casa>(1024);  // a power of two, half of them free
        size_t ocupadas = 0;
    };
    struct Entrada {
        size_t hash;
        uint32_t lugar;
    };
    using Entradas = std::array<std::vector<Entrada>, 2>;  // those of each part, in order

    static Entradas Separar(const Vistas& textos, size_t inicio, size_t fim);
    static uint32_t LugarPelaMarca(const Parte& parte, size_t hash);
    static void Antecipar(const Vistas& textos, const Vistas& conhecidos, const Parte& parte,
                          const std::vector<Entrada>& entradas, size_t proxima);
    void Entrar(Parte& parte, const std::vector<Entrada>& entradas);
    static void Dobrar(Parte& parte);
    // The slot of the text, or the free one where it belongs.
    static size_t CasaDe(const Parte& parte, const Vistas& conhecidos, std::u16string_view texto,
                         size_t hash);

    Vistas textos;
    std::array<Parte, 2> partes;
    std::vector<uint32_t> primeiros;
};

}  // namespace traducaoTQ
