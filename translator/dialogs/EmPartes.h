// Long work in parts, which may be done two at a time.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <functional>

namespace traducaoTQ {

// Does two pieces of work of which neither changes what the other one looks at. The module does
// them one after the other; a program with threads may do them at the same time.
using FazerAmbos = std::function<void(const std::function<void()>&, const std::function<void()>&)>;

inline void UmDepoisDoOutro(const std::function<void()>& um, const std::function<void()>& outro) {
    um();
    outro();
}

// Calls um(inicio, fim) and outro(inicio, fim) for parts of 0 .. quantidade: the one goes on from
// the begin and the other from the end until they meet, so that each has what stands together.
template <class Um, class Outro>
void EmPartes(size_t quantidade, size_t parte, const FazerAmbos& fazerAmbos, const Um& um,
              const Outro& outro) {
    const size_t partes = (quantidade + parte - 1) / parte;
    std::atomic<size_t> levadas = 0;
    const auto fazer = [&](const auto& trabalho, size_t i) {
        trabalho(i * parte, std::min((i + 1) * parte, quantidade));
    };
    fazerAmbos(
        [&] {
            for (size_t i = 0; levadas++ < partes; ++i) fazer(um, i);
        },
        [&] {
            for (size_t i = partes; levadas++ < partes;) fazer(outro, --i);
        });
}

template <class Trabalho>
void EmPartes(size_t quantidade, size_t parte, const FazerAmbos& fazerAmbos,
              const Trabalho& trabalho) {
    EmPartes(quantidade, parte, fazerAmbos, trabalho, trabalho);
}

}  // namespace traducaoTQ
