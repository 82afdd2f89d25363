// Raw frames one after the other: the chain's own rows, row 0 first, S2.14 words little-endian.

#pragma once

#include "media/streams/stream_reader.h"

namespace ruvex::media {

class RawStream : public StreamSource {
public:
    /// Throws MediaError on a size that checkFrameSize refuses.
    RawStream(InputStream stream, FrameSize size, Depth depth);

    const ClipInfo& info() const override { return info_; }
    std::optional<Frame> next() override;

private:
    InputStream stream_;
    ClipInfo info_;
};

/// Fills `bytes` with what makes up one frame. False at the end of the stream. Throws MediaError if
/// the end comes in the middle.
bool readWholeFrame(InputStream& stream, std::span<std::byte> bytes);

}  // namespace ruvex::media
