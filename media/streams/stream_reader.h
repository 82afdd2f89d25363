// Reading clips from streams, which cannot seek: Y4M or raw frames, as from a pipe.

#pragma once

#include <deque>

#include "media/frame_reader.h"
#include "media/streams/byte_stream.h"

namespace ruvex::media {

/// The frames of a stream in sequence.
class StreamSource {
public:
    virtual ~StreamSource() = default;
    StreamSource(const StreamSource&) = delete;
    StreamSource& operator=(const StreamSource&) = delete;

    virtual const ClipInfo& info() const = 0;
    /// The next frame; empty at the end. Throws MediaError if the stream is damaged or ends within
    /// a frame.
    virtual std::optional<Frame> next() = 0;

protected:
    StreamSource() = default;
};

/// Raw frames, one after the other: chain rows, row 0 first, S2.14 words little-endian.
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

/// Reads frames by number. The latest frames, up to 512 MB but at least two, are kept, so that an
/// effect may use earlier and later frames; reading a frame before them throws MediaError.
class StreamReader : public FrameReader {
public:
    /// Reads `descriptor`, which the caller owns, in the format that ReadOptions::format describes.
    /// `name` is for messages. Throws MediaError.
    StreamReader(int descriptor, std::string name, const ReadOptions& options);

    const ClipInfo& info() const override { return source_->info(); }

private:
    bool readOwn(std::int64_t number, Frame& frame) override;
    /// Reads and keeps the next frame. False at the end of the stream.
    bool advance();

    std::string name_;
    std::optional<AlphaForm> alpha_;
    std::unique_ptr<StreamSource> source_;
    std::deque<Frame> kept_;  ///< The latest frames, in order.
    std::int64_t count_ = 0;  ///< Frames read so far.
    bool ended_ = false;
};

}  // namespace ruvex::media
