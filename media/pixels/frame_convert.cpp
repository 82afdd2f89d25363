#include "media/pixels/frame_convert.h"

#include <algorithm>

#include "sdk/images/sample_convert.h"

namespace ruvex::media {

Frame convertDepth(Frame frame, Depth depth) {
    if (frame.depth() == depth) {
        return frame;
    }
    Frame converted;
    convertDepth(frame, depth, converted);
    return converted;
}

void convertDepth(const Frame& frame, Depth depth, Frame& converted) {
    if (frame.depth() == depth) {
        converted = frame;
        return;
    }
    makeRoom(converted, frame.size(), depth);
    const int components = frame.width() * kChannels;
    for (int y = 0; y < frame.height(); ++y) {
        if (depth == Depth::S214) {
            std::transform(frame.row8(y), frame.row8(y) + components, converted.row16(y),
                           s214From8);
        } else {
            std::transform(frame.row16(y), frame.row16(y) + components, converted.row8(y),
                           u8FromS214);
        }
    }
}

FrameSize fitInto(FrameSize size, int most) {
    const int longer = std::max(size.width, size.height);
    if (longer <= most) {
        return size;
    }
    const auto fitted = [&](int side) {
        return std::max(1, static_cast<int>((std::int64_t{side} * most + longer / 2) / longer));
    };
    return {fitted(size.width), fitted(size.height)};
}

}  // namespace ruvex::media
