// An open file that is closed at the end of a scope.
#pragma once

#include <unistd.h>

#include <utility>

namespace dxf {

class Descriptor {
  public:
    explicit Descriptor(int number) : number(number) {}
    ~Descriptor() {
        if (number >= 0) ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int Number() const { return number; }
    // A file system may tell only here that it could not write.
    int Close() { return ::close(std::exchange(number, -1)); }

  private:
    int number;
};

}  // namespace dxf
