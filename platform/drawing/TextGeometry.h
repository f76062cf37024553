// TextGeometry: where a text stands and how its letters are formed.
#pragma once

#include "platform/drawing/GeMatrix3d.h"

class GroupList;

// Points in object coordinates, angles in degrees.
struct TextGeometry {
    OdGePoint3d position;   // of the left end of the base line
    OdGePoint3d alignment;  // what the text is aligned by, unless it is aligned left
    double height = 0, rotation = 0, widthFactor = 1, oblique = 0, thickness = 0;
    OdGeVector3d normal{0, 0, 1};

    // A mirrored text is written on the back of its plane: its normal turns round.
    TextGeometry transformed(const OdGeMatrix3d& matrix) const;
};

TextGeometry ReadTextGeometry(const GroupList& groups);

// From the coordinates of a block to the world, for a reference to it. The base point of the block
// is not in it.
OdGeMatrix3d ReferenceMatrix(const GroupList& groups);
