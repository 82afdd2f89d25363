// A line of one plane of a picture, wherever the library put it: lines may be padded, or stored
// bottom up.

#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {
#include <libavutil/frame.h>
}

namespace ruvex::media {

/// Line y of the plane, counted from the picture's top, as numbers of type T. The picture keeps it.
template <class T = std::uint8_t>
T* planeLine(const AVFrame& picture, int plane, int y) {
    return reinterpret_cast<T*>(picture.data[plane] + std::ptrdiff_t{y} * picture.linesize[plane]);
}

}  // namespace ruvex::media
