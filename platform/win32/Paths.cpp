// Backslashes to slashes and back. Names are UTF-8; other bytes travel as U+DC80 to U+DCFF.
#include "platform/win32/Paths.h"

#include <algorithm>

#include "platform/text/CodePage.h"
#include "platform/text/Conversion.h"

std::string NativePath(std::u16string_view path) {
    static const CodePage utf8(CodePage::kUtf8);
    std::string out;
    for (size_t i = 0; i < path.size();) {
        char32_t codePoint = text::NextCodePoint(path, i);
        if (codePoint == u'\\') codePoint = u'/';
        if (codePoint == u'/' && out.ends_with('/')) continue;
        if (!utf8.Encode(codePoint, out)) text::AppendNarrow(codePoint, out);
    }
    return out;
}

std::u16string WindowsPath(std::string_view native) {
    std::u16string out = CodePage(CodePage::kUtf8).Decode(native);
    std::replace(out.begin(), out.end(), u'/', u'\\');
    return out;
}
