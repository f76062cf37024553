// Image lists without images.
#include "platform/window/CImageList.h"

BOOL CImageList::Create(int cx, int cy, UINT, int, int) {
    if (cx <= 0 || cy <= 0) return false;
    size = {cx, cy};
    return true;
}

BOOL CImageList::DeleteImageList() {
    const bool was = size.cx > 0;
    size = {};
    return was;
}
