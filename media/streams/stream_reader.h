// Clips that come in one after the other and cannot be searched: Y4M or raw frames from a pipe.

#pragma once

#include <deque>

#include "media/frame_reader.h"
#include "media/streams/byte_stream.h"

namespace ruvex::media {

/// The frames of a stream in their order.
class StreamSource {
public:
    virtual ~StreamSource() = default;
    StreamSource(const StreamSource&) = delete;
    StreamSource& operator=(const StreamSource&) = delete;

    virtual const ClipInfo& info() const = 0;
    /// The next frame; nothing at the end. Throws MediaError if the stream breaks off within one.
    virtual std::optional<Frame> next() = 0;

protected:
    StreamSource() = default;
};

/// Raw frames one after the other: chain rows, row 0 first, S2.14 words little-endian.
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

/// Frames by number, as far as they are at hand: those that came last are kept, up to a bound on
/// memory, so that an effect may look back and ahead. What came before them is gone.
class StreamReader : public FrameReader {
public:
    /// Reads `descriptor`, which stays the caller's, as Y4M; or, if the options give a size, as raw
    /// frames, of 8 bits unless they name the other kind. Throws MediaError.
    StreamReader(int descriptor, std::string name, const ReadOptions& options);

    const ClipInfo& info() const override { return source_->info(); }

private:
    bool readOwn(std::int64_t number, Frame& frame) override;
    /// Takes the next frame from the stream. False at its end.
    bool advance();

    std::string name_;
    std::optional<AlphaForm> alpha_;
    std::unique_ptr<StreamSource> source_;
    std::deque<Frame> kept_;
    std::int64_t came_ = 0;  ///< How many frames have come so far.
    bool ended_ = false;
};

}  // namespace ruvex::media
