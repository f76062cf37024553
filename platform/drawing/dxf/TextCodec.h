// The text of a drawing file: code page, \U+ and \M+ escapes, caret escapes.
#pragma once

#include <string>
#include <string_view>

#include "platform/drawing/dxf/Record.h"
#include "platform/text/CodePage.h"

namespace dxf {

class TextCodec {
  public:
    // UTF-8 from AC1021 on, else the page that $DWGCODEPAGE names, by default ANSI_1252.
    TextCodec(Version version, std::string_view codePageName);

    // Raw value to text: the page first, then \U+XXXX and \M+nXXXX, then ^@ to ^_ and "^ ".
    // Bytes that the page cannot decode become U+DC80 + byte - 0x80, so that Encode gives them
    // back.
    std::u16string Decode(std::string_view raw) const;
    // Whether Decode gives that text; told without making it as far as the value is plain ASCII.
    bool Reads(std::string_view raw, std::u16string_view text) const;
    // Text to raw value: control characters as caret escapes, a caret as "^ ", what the page lacks
    // as \U+XXXX. Never holds a raw line end.
    std::string Encode(std::u16string_view text) const;

    bool Utf8() const;

  private:
    std::string EncodeAll(std::u16string_view text, bool looseBytes) const;
    void EncodeCharacter(std::u16string_view character, bool looseBytes, std::string& raw) const;

    CodePage page;
    bool utf8;
};

}  // namespace dxf
