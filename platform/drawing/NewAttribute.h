// NewAttribute: an attribute that is in no drawing yet.
#pragma once

#include <optional>
#include <string>

#include "platform/drawing/DbEntity.h"
#include "platform/drawing/TextGeometry.h"
#include "platform/drawing/dxf/Store.h"

struct NewAttribute {
    OdString layer = u"0";
    OdCmColor color;
    OdString linetype = u"BYLAYER";
    double linetypeScale = 1;
    int lineWeight = -1;
    int transparency = 0;
    std::string otherProperties;  // material, plot style, shadows: groups as they stand

    OdString tag, text, textStyle;
    TextGeometry geometry;
    bool aligned = false;  // the second point is written
    int horizontalMode = 0, verticalMode = 0, generation = 0, fieldLength = 0;
    int64_t flags = 0;
    std::optional<int> version, lock;  // the two groups 280, which older drawings lack
    std::string paragraphs;            // the embedded object of a text of several lines
    OdGeMatrix3d place;                // from the block to the reference

    // Everything behind the owner, still in the coordinates of the block.
    void write(const dxf::Store& store, dxf::GroupWriter& writer) const;
};
