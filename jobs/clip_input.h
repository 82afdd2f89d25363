// Serves the effect with frames of the clip that is rendered.

#pragma once

#include <exception>
#include <list>
#include <memory>
#include <optional>

#include "jobs/clip_ends.h"
#include "jobs/shared_clip.h"
#include "media/pixels/fields.h"
#include "runtime/frame_server.h"
#include "runtime/lent_image.h"
#include "runtime/project.h"

namespace ruvex::jobs {

/// The format identifier of a depth.
const GUID& formatOf(media::Depth depth);

/// Lends a picture to the effect as an image that fills the project's frame. The effect may change
/// the picture.
class LentFrame {
public:
    LentFrame(runtime::LentImage& lent, const runtime::Project& project, media::Frame& frame)
        : loan_(lent, project, frame.width(), frame.height(), formatOf(frame.depth()),
                frame.bytes().data()) {}

    const ComPtr<IDSImage>& image() const { return loan_.image(); }

private:
    runtime::Loan loan_;
};

/// The input provider of one session. One thread at a time; several providers may share the clip.
/// Pictures are read straight into the memory that the effect works on, and the memory serves frame
/// after frame.
class ClipInput final : public runtime::InputProvider {
public:
    /// `ends` says what the effect gets when it asks for frames outside the clip.
    ClipInput(std::shared_ptr<SharedClip> clip, const runtime::Project& project,
              ClipEnds ends = ClipEnds::Blank)
        : clip_(std::move(clip)), project_(project), ends_(ends) {}

    /// As long as this lives, requests for frame `number` are served with a copy of `frame`, which
    /// is not read again: the effect asks for it where the time of a frame is no exact fraction. So
    /// are all requests of a clip that serves no other frames. If there is a field, every request
    /// gets that field of its frame only.
    class FrameAtHand {
    public:
        FrameAtHand(ClipInput& input, std::int64_t number, const media::Frame& frame,
                    std::optional<media::Field> field = {})
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
    /// null. The image has its pixels until endRender. To the effect an exception here is a
    /// refusal; it is kept for rethrowFailure.
    ComPtr<IDSImage> imageAt(double seconds) override;

    /// Takes back the images of a render, and forgets its failure.
    void endRender() noexcept;
    media::HeldMemory held() const;
    /// Throws the exception that the last failed request ended with, once.
    void rethrowFailure();

private:
    struct AtHand {
        std::int64_t number = 0;
        const media::Frame* frame = nullptr;
        std::optional<media::Field> field{};
    };

    /// A picture that the effect was given.
    struct Given {
        media::Frame frame;
        runtime::LentImage image;
    };

    ComPtr<IDSImage> frame(std::int64_t number);
    /// False where the clip has no such frame.
    bool readFrame(std::int64_t number, media::Frame& frame);
    /// The memory of a picture that the effect does not hold.
    Given& unusedPicture();

    std::shared_ptr<SharedClip> clip_;
    runtime::Project project_;
    ClipEnds ends_;
    AtHand atHand_;
    std::list<Given> given_;  ///< Mostly one: the effect asks for one picture a frame.
    media::Frame whole_;      ///< The frame of a field that the effect asks for.
    std::exception_ptr failure_;
};

}  // namespace ruvex::jobs
