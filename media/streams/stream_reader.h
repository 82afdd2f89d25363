// Reading clips from streams, which cannot seek: Y4M or raw frames, as from a pipe.

#pragma once

#include <list>

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
    /// Stores the next frame in `frame`, whose memory is reused where it fits. False at the end.
    /// Throws MediaError if the stream is damaged or ends within a frame.
    virtual bool next(Frame& frame) = 0;
    /// What this holds for pictures.
    virtual void addHeld(HeldMemory& held) const { static_cast<void>(held); }

protected:
    StreamSource() = default;
};

/// Raw frames, one after the other: chain rows, row 0 first, S2.14 words little-endian.
class RawStream : public StreamSource {
public:
    /// Throws MediaError on a size that checkFrameSize refuses.
    RawStream(InputStream stream, FrameSize size, Depth depth);

    const ClipInfo& info() const override { return info_; }
    bool next(Frame& frame) override;

private:
    InputStream stream_;
    ClipInfo info_;
};

/// Reads frames by number. Of frames that may be asked for again the latest, up to 512 MB but at
/// least two, are kept, so that an effect may use earlier and later frames; reading a frame before
/// them throws MediaError. Frames that are read once go straight to the caller.
class StreamReader : public FrameReader {
public:
    /// Reads `descriptor`, which the caller owns, in the format that ReadOptions::format describes.
    /// `name` is for messages. Throws MediaError.
    StreamReader(int descriptor, std::string name, const ReadOptions& options);

    const ClipInfo& info() const override { return source_->info(); }

private:
    bool readOwn(std::int64_t number, Frame& frame, Use use) override;
    void addHeld(HeldMemory& held) const override;
    /// Reads frame `number`, which has not been read yet, and keeps none. False at the end of the
    /// stream.
    bool readStraight(std::int64_t number, Frame& frame);
    /// Reads the next frame into `frame`. False at the end of the stream.
    bool readNext(Frame& frame);
    /// Reads and keeps the next frame. False at the end of the stream.
    bool keepNext();

    std::string name_;
    std::optional<AlphaForm> alpha_;
    std::unique_ptr<StreamSource> source_;
    std::list<Frame> kept_;       ///< The latest frames, in order.
    Frame next_;                  ///< The memory of the frame that is kept next.
    Frame premultiplied_;         ///< A frame before alpha is divided out.
    std::int64_t firstKept_ = 0;  ///< Number of the first of them.
    std::int64_t count_ = 0;      ///< Frames read so far.
    bool ended_ = false;
};

}  // namespace ruvex::media
