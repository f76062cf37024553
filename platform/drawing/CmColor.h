// OdCmColor: a colour by number or as a whole, and the colours that stand behind the numbers.
#pragma once

#include <cstdint>

class OdCmColor {
  public:
    static constexpr uint16_t kByBlock = 0;
    static constexpr uint16_t kByLayer = 256;

    explicit OdCmColor(uint8_t method = 0) : method(method) {}

    uint8_t colorMethod() const { return method; }
    void setColorMethod(uint8_t newMethod) { method = newMethod; }

    // 1 to 255 are fixed colours; kByBlock, kByLayer and whatever lies beyond show as white, since
    // a number alone does not tell the block or the layer.
    void setColorIndex(uint16_t index);

    // Red, green and blue in the three lower bytes, red the highest of them.
    void setColor(uint32_t value) { rgb = value & 0xFFFFFF; }

    uint8_t red() const { return static_cast<uint8_t>(rgb >> 16); }
    uint8_t green() const { return static_cast<uint8_t>(rgb >> 8); }
    uint8_t blue() const { return static_cast<uint8_t>(rgb); }

  private:
    uint8_t method;
    uint32_t rgb = 0;
};
