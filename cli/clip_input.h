// The clip that is rendered, as the effect's host hands it out.

#pragma once

#include <exception>
#include <memory>
#include <optional>

#include "cli/clip_ends.h"
#include "cli/shared_clip.h"
#include "media/pixels/fields.h"
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

    /// A frame that is at hand already, and the field of each frame that stands for it, as long as
    /// this lives.
    class Hold {
    public:
        Hold(ClipInput& input, std::int64_t number, const media::Frame& frame, media::Field field)
            : input_(input) {
            input_.held_ = {number, &frame, field};
        }
        ~Hold() { input_.held_ = {}; }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        ClipInput& input_;
    };

    /// The frame nearest to seconds * rate, or what stands for it outside the clip; null where that
    /// is nothing. What goes wrong in reading it is kept for rethrowFailure: to the effect it is a
    /// refusal.
    ComPtr<IDSImage> imageAt(double seconds) override;

    /// Throws what a request of the effect failed with, once.
    void rethrowFailure();

private:
    struct Held {
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
    Held held_;
    media::Frame frame_;
    media::Frame field_;
    std::exception_ptr failure_;
};

}  // namespace ruvex::cli
