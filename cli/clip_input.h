// The clip that is rendered, as the effect's host hands it out.

#pragma once

#include <exception>
#include <memory>

#include "cli/clip_ends.h"
#include "cli/shared_clip.h"
#include "runtime/frame_server.h"
#include "runtime/project.h"

namespace ruvex::cli {

/// The format identifier of a depth.
const GUID& formatOf(media::Depth depth);

/// The picture as an image of its own, over the project's frame.
ComPtr<IDSImage> toImage(const runtime::Project& project, const media::Frame& frame);

/// Serves one session with frames of a clip. One thread at a time; several may share the clip.
class ClipInput final : public runtime::InputProvider {
public:
    /// `ends` says what the effect gets when it asks for frames outside the clip.
    ClipInput(std::shared_ptr<SharedClip> clip, const runtime::Project& project,
              ClipEnds ends = ClipEnds::Blank)
        : clip_(std::move(clip)), project_(project), ends_(ends) {}

    /// The frame nearest to seconds * rate, or what stands for it outside the clip; null where that
    /// is nothing. What goes wrong in reading it is kept for rethrowFailure: to the effect it is a
    /// refusal.
    ComPtr<IDSImage> imageAt(double seconds) override;

    /// Throws what a request of the effect failed with, once.
    void rethrowFailure();

private:
    ComPtr<IDSImage> frame(std::int64_t number);

    std::shared_ptr<SharedClip> clip_;
    runtime::Project project_;
    ClipEnds ends_;
    media::Frame frame_;
    std::exception_ptr failure_;
};

}  // namespace ruvex::cli
