// One clip that several threads read.

#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include "media/frame_reader.h"

namespace ruvex::jobs {

/// A clip behind locks. Frames in order and frames out of order have a reader each, so that a
/// request out of order does not cost the other its position in the file.
class SharedClip {
public:
    using Open = std::function<std::unique_ptr<media::FrameReader>()>;
    /// Which frames are asked for beside those that are read in order.
    enum class Requests { None, AnyFrame };

    /// `openAgain` makes a second reader of the same clip, at the first request out of order. Empty
    /// for a clip that can be opened only once.
    SharedClip(std::unique_ptr<media::FrameReader> reader, Open openAgain,
               Requests requests = Requests::AnyFrame)
        : inOrder_{std::move(reader)}, openAgain_(std::move(openAgain)), requests_(requests) {}

    const media::ClipInfo& info() const { return inOrder_.reader->info(); }

    /// What its readers hold. For a caller that knows that no thread reads.
    media::HeldMemory held() const;

    /// Frame `number`; the next call should ask for the next. False outside the clip. Throws
    /// MediaError. Any thread.
    bool read(std::int64_t number, media::Frame& frame);

    /// The same; throws MediaError where the clip has no such frame.
    void readExisting(std::int64_t number, media::Frame& frame);

    /// Whether frames out of order can be read.
    bool servesOthers() const { return requests_ == Requests::AnyFrame; }
    /// The same as read for a frame out of order.
    bool readOther(std::int64_t number, media::Frame& frame);

private:
    struct Locked {
        std::unique_ptr<media::FrameReader> reader;
        std::mutex mutex{};
    };
    static bool readFrom(Locked& locked, std::int64_t number, media::Frame& frame, media::Use use);

    Locked inOrder_;
    Locked other_;
    Open openAgain_;
    Requests requests_;
    std::once_flag opened_;
};

}  // namespace ruvex::jobs
