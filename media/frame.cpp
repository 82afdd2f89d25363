#include "media/frame.h"

#include <limits>

#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// Bytes.
constexpr std::int64_t kLargestFrame = std::numeric_limits<std::int32_t>::max();

}  // namespace

std::string toText(FrameSize size) {
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

void checkFrameSize(FrameSize size, Depth depth, const std::string& what) {
    if (size.width < 1 || size.height < 1) {
        throw MediaError(what + " has the size " + toText(size) +
                         ": width and height must be at least 1.");
    }
    const auto pixel = static_cast<std::int64_t>(bytesPerPixel(depth));
    // The product of two ints fits 64 bits. Multiplied by the bytes of a pixel it might not, so the
    // limit is divided instead.
    if (std::int64_t{size.width} * size.height > kLargestFrame / pixel) {
        throw MediaError(what + " has the size " + toText(size) +
                         ": a frame must stay below 2 GB. Use a smaller picture.");
    }
}

Frame::Frame(FrameSize size, Depth depth) : size_(size), depth_(depth) {
    checkFrameSize(size, depth, "The frame");
    bytes_.resize(rowBytes() * static_cast<std::size_t>(size.height));
}

void makeRoom(Frame& frame, FrameSize size, Depth depth) {
    if (frame.size() != size || frame.depth() != depth) {
        frame = Frame(size, depth);
    }
}

}  // namespace ruvex::media
