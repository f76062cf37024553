// OdGePoint3d: a point in drawing units.
#pragma once

struct OdGePoint3d {
    double x = 0, y = 0, z = 0;
    friend bool operator==(const OdGePoint3d&, const OdGePoint3d&) = default;
};
