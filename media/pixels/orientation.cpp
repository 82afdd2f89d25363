#include "media/pixels/orientation.h"

extern "C" {
#include <libavformat/avformat.h>
#include <libavutil/frame.h>
}

#include <cstring>

#include "media/av_functions.h"
#include "media/frame.h"

namespace ruvex::media {
namespace {

// Indices into a display matrix, which maps x' = a x + c y and y' = b x + d y with y downwards.
constexpr int kA = 0;
constexpr int kB = 1;
constexpr int kC = 3;
constexpr int kD = 4;

Orientation fromBytes(const std::uint8_t* matrix) {
    return matrix == nullptr ? Orientation()
                             : orientationOf(reinterpret_cast<const std::int32_t*>(matrix));
}

/// A pixel of the stored picture.
struct StoredPlace {
    int line;
    int column;
};

/// The stored pixel that is shown in column x of line y. `size` is the size of the picture shown.
StoredPlace placeOf(int x, int y, FrameSize size, const Orientation& orientation) {
    const int across = orientation.mirrored ? size.width - 1 - x : x;
    const int down = orientation.flipped ? size.height - 1 - y : y;
    return orientation.transposed ? StoredPlace{across, down} : StoredPlace{down, across};
}

/// `kBytes` is the size of a pixel.
template <std::size_t kBytes>
void turn(const Frame& frame, const Orientation& orientation, Frame& shown) {
    for (int y = 0; y < shown.height(); ++y) {
        std::byte* pixel = shown.row(chainRowOfLine(y, shown.height()));
        for (int x = 0; x < shown.width(); ++x, pixel += kBytes) {
            const StoredPlace place = placeOf(x, y, shown.size(), orientation);
            const std::byte* line = frame.row(chainRowOfLine(place.line, frame.height()));
            std::memcpy(pixel, line + static_cast<std::size_t>(place.column) * kBytes, kBytes);
        }
    }
}

}  // namespace

Orientation orientationOf(const std::int32_t* displayMatrix) {
    const std::int32_t a = displayMatrix[kA];
    const std::int32_t b = displayMatrix[kB];
    const std::int32_t c = displayMatrix[kC];
    const std::int32_t d = displayMatrix[kD];
    if (b == 0 && c == 0) {
        return {false, a < 0, d < 0};
    }
    if (a == 0 && d == 0) {
        return {true, c < 0, b < 0};
    }
    return {};
}

Orientation orientationOf(const AVFrame& picture) {
    const AVFrameSideData* data = av_frame_get_side_data(&picture, AV_FRAME_DATA_DISPLAYMATRIX);
    return fromBytes(data == nullptr ? nullptr : data->data);
}

Orientation orientationOf(const AVStream& stream) {
    return fromBytes(av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, nullptr));
}

Frame setUpright(Frame frame, const Orientation& orientation) {
    if (orientation.upright()) {
        return frame;
    }
    Frame shown;
    setUpright(frame, orientation, shown);
    return shown;
}

void setUpright(const Frame& frame, const Orientation& orientation, Frame& shown) {
    makeRoom(shown, setUpright(frame.size(), orientation), frame.depth());
    if (frame.depth() == Depth::Bits8) {
        turn<bytesPerPixel(Depth::Bits8)>(frame, orientation, shown);
    } else {
        turn<bytesPerPixel(Depth::S214)>(frame, orientation, shown);
    }
}

FrameSize setUpright(FrameSize size, const Orientation& orientation) {
    return orientation.transposed ? FrameSize{size.height, size.width} : size;
}

Rational setUpright(Rational pixelAspect, const Orientation& orientation) {
    return orientation.transposed ? Rational{pixelAspect.den, pixelAspect.num} : pixelAspect;
}

FieldOrder setUpright(FieldOrder fields, int height, const Orientation& orientation) {
    if (orientation.transposed || fields == FieldOrder::Progressive) {
        return FieldOrder::Progressive;
    }
    // Flipped, an even number of lines puts the bottom field's last line on top; an odd number puts
    // the top field's there.
    const bool swapped = orientation.flipped && height % 2 == 0;
    return (fields == FieldOrder::TopFirst) != swapped ? FieldOrder::TopFirst
                                                       : FieldOrder::BottomFirst;
}

}  // namespace ruvex::media
