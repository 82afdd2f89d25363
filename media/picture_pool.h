// Pictures whose memory serves again once nobody uses it.

#pragma once

#include <vector>

#include "media/av_library.h"
#include "media/held_memory.h"

namespace ruvex::media {

/// Pictures of one size and format for an encoder, which may keep some for later. There are as many
/// as the encoder keeps at once, and one more.
class PicturePool {
public:
    PicturePool(int width, int height, AVPixelFormat format)
        : width_(width), height_(height), format_(format) {}

    /// A picture that nobody else refers to; its pixels are undefined. The pool owns it. Throws
    /// std::bad_alloc.
    AVFrame& take();

    HeldMemory held() const;

private:
    int width_;
    int height_;
    AVPixelFormat format_;
    std::vector<AvFrame> pictures_;
};

}  // namespace ruvex::media
