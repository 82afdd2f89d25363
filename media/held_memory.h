// How much memory a job holds for pictures.

#pragma once

#include <cstddef>

#include "media/frame.h"

namespace ruvex::media {

/// Pictures in memory, frames and such as an encoder takes, and the bytes of all of them.
struct HeldMemory {
    int pictures = 0;
    std::size_t bytes = 0;

    /// Adds a picture; nothing for one that has no memory.
    void add(std::size_t pictureBytes) {
        pictures += pictureBytes > 0 ? 1 : 0;
        bytes += pictureBytes;
    }
    void add(const Frame& frame) { add(frame.bytes().capacity()); }
    void add(const HeldMemory& other) {
        pictures += other.pictures;
        bytes += other.bytes;
    }
};

}  // namespace ruvex::media
