// Counting of the memory that the values of one interpreter hold.
#include "host/lisp/Heap.h"

#include <string>

#include "host/lisp/Error.h"

namespace lisp {

void Heap::CheckRoom(std::size_t bytes) const {
    if (lifted_ || (bytes <= limit_ && alive_ <= limit_ - bytes)) return;
    std::u16string line = u"out of memory: the values of the program exceed ";
    for (char digit : std::to_string(limit_ >> 10)) line += static_cast<char16_t>(digit);
    throw Error(line + u" KB");
}

void Heap::Take(std::size_t bytes) {
    CheckRoom(bytes);
    alive_ += bytes;
}

void Heap::Give(std::size_t bytes) {
    alive_ -= bytes;
    if (abandoned_ && alive_ == 0) delete this;
}

void Heap::Abandon() {
    abandoned_ = true;
    if (alive_ == 0) delete this;
}

}  // namespace lisp
