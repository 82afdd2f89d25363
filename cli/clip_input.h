// The clip that is rendered, as the effect's host hands it out.

#pragma once

#include <exception>
#include <memory>

#include "cli/clip_ends.h"
#include "media/frame_reader.h"
#include "runtime/frame_server.h"
#include "runtime/project.h"

namespace ruvex::cli {

/// The format identifier of a depth.
const GUID& formatOf(media::Depth depth);

/// Serves the frames of a clip. One thread at a time.
class ClipInput final : public runtime::InputProvider {
public:
    /// `depth` is the one that the reader delivers. `ends` says what the effect gets when it asks
    /// for frames outside the clip.
    ClipInput(std::unique_ptr<media::FrameReader> reader, media::Depth depth,
              const runtime::Project& project, ClipEnds ends = ClipEnds::Blank);

    /// Frame `number`, at the depth in use. False outside the clip. Throws MediaError.
    bool read(std::int64_t number, media::Frame& frame);

    /// Frame `number` as an image of its own; null outside the clip. Throws MediaError.
    ComPtr<IDSImage> frame(std::int64_t number);

    /// The frame nearest to seconds * rate, or what stands for it outside the clip; null where that
    /// is nothing. What goes wrong in reading it is kept for rethrowFailure: to the effect it is a
    /// refusal.
    ComPtr<IDSImage> imageAt(double seconds) override;

    /// Throws what a request of the effect failed with, once.
    void rethrowFailure();

private:
    std::unique_ptr<media::FrameReader> reader_;
    media::Depth depth_;
    runtime::Project project_;
    ClipEnds ends_;
    media::Frame frame_;
    std::exception_ptr failure_;
};

}  // namespace ruvex::cli
