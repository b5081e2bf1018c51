// Doubles from the bytes of an input, as coordinates and angles of any kind.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "orvil/geometry/space_primitives.h"

// The input as doubles, which is read round and round.
class Numbers {
public:
    Numbers(const std::uint8_t* data, std::size_t size) : data_(data), count_(size / sizeof(double)) {}

    double next() {
        double number = 0.0;
        std::memcpy(&number, data_ + at_++ % count_ * sizeof number, sizeof number);
        return number;
    }

    C2DPoint point() {
        const double x = next();
        return C2DPoint(x, next());
    }

    C3DPoint space_point() {
        const double x = next();
        const double y = next();
        return C3DPoint(x, y, next());
    }

private:
    const std::uint8_t* data_;
    std::size_t count_;
    std::size_t at_ = 0;
};
