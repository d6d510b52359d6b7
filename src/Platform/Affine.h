#pragma once

namespace kerlune {

struct Point {
    double x = 0;
    double y = 0;
};

// An affine map of the plane: x' = xx·x + xy·y + dx, y' = yx·x + yy·y + dy.
struct Affine {
    double xx = 1;
    double xy = 0;
    double dx = 0;
    double yx = 0;
    double yy = 1;
    double dy = 0;

    Point operator()(const Point &p) const { return {xx * p.x + xy * p.y + dx, yx * p.x + yy * p.y + dy}; }
};

} // namespace kerlune
