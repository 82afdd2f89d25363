#include "media/streams/raw_stream.h"

#include "media/media_error.h"

namespace ruvex::media {

bool readWholeFrame(InputStream& stream, std::span<std::byte> bytes) {
    const std::size_t got = stream.read(bytes);
    if (got != 0 && got != bytes.size()) {
        throw MediaError(stream.name() + " breaks off within a frame: " + std::to_string(got) +
                         " of its " + std::to_string(bytes.size()) +
                         " bytes came. It is cut off, or its frames have another size.");
    }
    return got != 0;
}

RawStream::RawStream(InputStream stream, FrameSize size, Depth depth) : stream_(std::move(stream)) {
    checkFrameSize(size, depth, stream_.name());
    info_.size = size;
    info_.depth = depth;
    info_.last = kEndless;
    info_.lastKnown = false;
    info_.hasAlpha = true;
    info_.bits = depth == Depth::Bits8 ? 8 : 16;
}

std::optional<Frame> RawStream::next() {
    Frame frame(info_.size, info_.depth);
    if (!readWholeFrame(stream_, frame.bytes())) {
        return std::nullopt;
    }
    return frame;
}

}  // namespace ruvex::media
