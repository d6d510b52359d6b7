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

    // First the other, then this.
    Affine operator*(const Affine &other) const
    {
        return {xx * other.xx + xy * other.yx, xx * other.xy + xy * other.yy, xx * other.dx + xy * other.dy + dx,
                yx * other.xx + yy * other.yx, yx * other.xy + yy * other.yy, yx * other.dx + yy * other.dy + dy};
    }

    double determinant() const { return xx * yy - xy * yx; }

    Affine inverse() const // the determinant must not be 0
    {
        const double d = determinant();
        return {yy / d, -xy / d, (xy * dy - yy * dx) / d, -yx / d, xx / d, (yx * dx - xx * dy) / d};
    }
};

} // namespace kerlune
