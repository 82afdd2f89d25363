// Serves the effect with frames of the clip that is rendered.

#pragma once

#include <exception>
#include <memory>
#include <optional>

#include "jobs/clip_ends.h"
#include "jobs/shared_clip.h"
#include "media/pixels/fields.h"
#include "runtime/frame_server.h"
#include "runtime/project.h"

namespace ruvex::jobs {

/// The format identifier of a depth.
const GUID& formatOf(media::Depth depth);

/// A copy of the picture as an image that fills the project's frame.
ComPtr<IDSImage> toImage(const runtime::Project& project, const media::Frame& frame);

/// The input provider of one session. One thread at a time; several providers may share the clip.
class ClipInput final : public runtime::InputProvider {
public:
    /// `ends` says what the effect gets when it asks for frames outside the clip.
    ClipInput(std::shared_ptr<SharedClip> clip, const runtime::Project& project,
              ClipEnds ends = ClipEnds::Blank)
        : clip_(std::move(clip)), project_(project), ends_(ends) {}

    /// As long as this lives, requests for frame `number` are served from `frame`, which is not
    /// read again, and every request gets the named field of its frame only.
    class FrameAtHand {
    public:
        FrameAtHand(ClipInput& input, std::int64_t number, const media::Frame& frame,
                    media::Field field)
            : input_(input) {
            input_.atHand_ = {number, &frame, field};
        }
        ~FrameAtHand() { input_.atHand_ = {}; }
        FrameAtHand(const FrameAtHand&) = delete;
        FrameAtHand& operator=(const FrameAtHand&) = delete;

    private:
        ClipInput& input_;
    };

    /// The frame nearest to seconds * rate; outside the clip, the frame that `ends` asks for, or
    /// null. To the effect an exception here is a refusal; it is kept for rethrowFailure.
    ComPtr<IDSImage> imageAt(double seconds) override;

    /// Forgets an exception that was kept for rethrowFailure.
    void forgetFailure() { failure_ = nullptr; }
    /// Throws the exception that the last failed request ended with, once.
    void rethrowFailure();

private:
    struct AtHand {
        std::int64_t number = 0;
        const media::Frame* frame = nullptr;
        std::optional<media::Field> field{};
    };

    ComPtr<IDSImage> frame(std::int64_t number);
    /// Null where the clip has no such frame.
    const media::Frame* find(std::int64_t number);

    std::shared_ptr<SharedClip> clip_;
    runtime::Project project_;
    ClipEnds ends_;
    AtHand atHand_;
    media::Frame frame_;
    media::Frame field_;
    std::exception_ptr failure_;
};

}  // namespace ruvex::jobs
