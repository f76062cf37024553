// Items of a display list as paths of Qt.
#pragma once

#include <QPainterPath>

#include "apps/painter/DisplayList.h"

namespace painter {

// Of an item with verbs, mapped.
QPainterPath PathOf(const ListPart& part, const Item& item, const QTransform& map);

}  // namespace painter
