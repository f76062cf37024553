// CImageList: the size of a list's images. Lists here show none; the height makes their rows
// higher.
#pragma once

#include "platform/window/Geometry.h"

inline constexpr UINT ILC_MASK = 0x0001, ILC_COLOR = 0, ILC_COLOR32 = 0x0020;

class CImageList {
  public:
    // False for a size of 0 or less. Places for images are not needed and not kept.
    BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
    BOOL DeleteImageList();  // false if there was none
    int GetImageCount() const { return 0; }
    CSize Size() const { return size; }  // 0 by 0 before Create

  private:
    CSize size;
};
