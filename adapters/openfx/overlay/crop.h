// The crop of an instance.

#pragma once

namespace ruvex::openfx {

/// In percent of the picture, from its left or lower side.
struct Crop {
    double left = 0.0;
    double right = 100.0;
    double bottom = 0.0;
    double top = 100.0;

    friend bool operator==(const Crop&, const Crop&) = default;
};

}  // namespace ruvex::openfx
