// Fonts as descriptions.
#include "platform/window/CFont.h"

#include <algorithm>

BOOL CFont::CreateFontIndirect(const LOGFONT* description) {
    if (!description) return FALSE;
    logFont = *description;
    logFont.lfFaceName[31] = 0;
    made = true;
    return TRUE;
}

BOOL CFont::CreatePointFont(int tenths, LPCWSTR face) {
    LOGFONT description;
    description.lfHeight = -((tenths * 96 + 360) / 720);
    const std::u16string name = face ? face : u"";
    std::copy_n(name.begin(), std::min<size_t>(name.size(), 31), description.lfFaceName);
    return CreateFontIndirect(&description);
}

int CFont::GetLogFont(LOGFONT* description) const {
    if (!made || !description) return 0;
    *description = logFont;
    return sizeof(LOGFONT);
}

BOOL CFont::DeleteObject() {
    made = false;
    return TRUE;
}
