// The numbers by which the table dialogs make the cells of their lists.
#pragma once

inline constexpr int kCelulaOpcoes = 0;
inline constexpr int kCelulaTexto = 1;
inline constexpr int kFormatoLivre = 1;  // every character can be typed
