// What the owner of an editable list hears of edits.
#pragma once

#include <cstdint>

namespace ListView {

class ListViewEditListener {
  public:
    virtual ~ListViewEditListener() = default;
    // The editor has ended and the value stands in the cell.
    virtual void OnCelulaEditada(int32_t row, int32_t col) {}
    virtual void OnReservado(int32_t row, int32_t col) {}  // never called
    virtual void OnCelulaAcionada(int32_t row, int32_t col) {}
    // Around the colour picker.
    virtual void OnAntesDaCor(int32_t row, int32_t col) {}
    virtual void OnDepoisDaCor(int32_t row, int32_t col) {}
};

}  // namespace ListView
