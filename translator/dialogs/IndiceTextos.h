// Numbers texts 0, 1, 2 ... in the order of their first arrival.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace traducaoTQ {

// Made for hundreds of thousands of texts, where most of the time goes into waiting for memory: a
// few dense arrays in place of a node per text, and whole lists at a time, so that the memory of
// the next texts is fetched while one is compared. The texts are viewed and must outlive the index.
class IndiceTextos {
  public:
    using Vistas = std::vector<std::u16string_view>;
    static constexpr uint32_t kNenhum = 0xFFFFFFFF;

    // numeros[i] becomes the number of textos[i].
    IndiceTextos(const Vistas& textos, std::vector<uint32_t>& numeros);
    size_t Quantidade() const { return numerados.size(); }

    std::vector<uint32_t> Procurar(const Vistas& textos) const;  // kNenhum for an unknown text

  private:
    struct Casa {
        uint32_t marca = 0;   // the upper half of the hash
        uint32_t numero = 0;  // from 1 on; 0: free
    };
    template <class Visita>
    void ParaCadaLugar(const Vistas& textos, Visita visita) const;
    void Antecipar(const std::vector<size_t>& hashes, size_t proximo) const;
    // The place of the text, or the free one where it belongs.
    size_t LugarDe(std::u16string_view texto, size_t hash) const;

    std::vector<Casa> casas;  // a power of two, at most half of them taken
    Vistas numerados;
};

}  // namespace traducaoTQ
