#include "media/pixels/frame_convert.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "media/av_library.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/sample_convert.h"

namespace ruvex::media {

Frame convertDepth(Frame frame, Depth depth) {
    if (frame.depth() == depth) {
        return frame;
    }
    Frame converted(frame.size(), depth);
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
    return converted;
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

Frame scaleDown(Frame frame, FrameSize size) {
    if (frame.size() == size) {
        return frame;
    }
    const Scaler scaler(sws_getContext(
        frame.width(), frame.height(), AV_PIX_FMT_RGBA, size.width, size.height, AV_PIX_FMT_RGBA,
        SWS_AREA | SWS_ACCURATE_RND | SWS_BITEXACT, nullptr, nullptr, nullptr));
    if (!scaler) {
        throw std::bad_alloc();
    }
    const AvFrame scaled = newPicture(size.width, size.height, AV_PIX_FMT_RGBA);
    const std::uint8_t* from = frame.row8(0);
    const int stride = static_cast<int>(frame.rowBytes());
    sws_scale(scaler.get(), &from, &stride, 0, frame.height(), scaled->data, scaled->linesize);
    Frame result(size, Depth::Bits8);
    for (int y = 0; y < size.height; ++y) {
        std::memcpy(result.row(y), planeLine(*scaled, 0, y), result.rowBytes());
    }
    return result;
}

}  // namespace ruvex::media
