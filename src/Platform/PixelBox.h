#pragma once

#include <algorithm>

namespace kerlune {

// A box on an image in pixels, from the top left corner, y downwards.
template <typename Number>
struct Box {
    Number left = 0;
    Number top = 0;
    Number right = 0;
    Number bottom = 0;

    bool operator==(const Box &) const = default;

    bool isEmpty() const { return !(left < right && top < bottom); }

    Box intersected(const Box &other) const
    {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }

    Box united(const Box &other) const
    {
        if (isEmpty() || other.isEmpty())
            return isEmpty() ? other : *this;
        return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
                std::max(bottom, other.bottom)};
    }
};

using PixelBox = Box<double>; // of places between the pixels
using PixelArea = Box<int>;   // of whole pixels

} // namespace kerlune
