#pragma once

#include <memory>

namespace kerlune {

template <auto Release>
struct HandleDeleter {
    template <typename T>
    void operator()(T *handle) const
    {
        Release(handle);
    }
};

// Owns one object of a C library and gives it back with the library's own function.
template <typename T, auto Release>
using Handle = std::unique_ptr<T, HandleDeleter<Release>>;

} // namespace kerlune
