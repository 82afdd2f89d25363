// The clip behind one frame, as the effect asks for it: the picture at hand and other frames.

#pragma once

#include <exception>

#include "adapters/common/frame_picture.h"
#include "adapters/common/picture_effect.h"
#include "runtime/frame_server.h"
#include "runtime/kept_image.h"
#include "runtime/project.h"
#include "sdk/images/memory_image.h"

namespace ruvex::adapters {

/// Gives every frame as an image of its own with the same rows and the same format. An image serves
/// the next frame again unless somebody still holds it. One thread at a time.
class FrameClip final : public runtime::InputProvider {
public:
    /// What the images of one frame are made from; both pointers outlive its render.
    struct Frame {
        runtime::Project project{};
        double seconds = 0.0;
        FrameRows rows{};
        GUID format{};
        const SourcePicture* atHand = nullptr;  ///< Null for transparent black.
        OtherFrames* others = nullptr;          ///< Null where the picture at hand serves.
    };

    /// The picture at hand.
    struct AtHand {
        ComPtr<CDSMemoryImage> image;
        bool opaque = false;  ///< Its form is, or all its pixels.
    };

    /// Begins a frame and gives its picture. Throws runtime::Error.
    AtHand begin(const Frame& frame);

    /// The frame nearest to `seconds`: the picture at hand if that is the frame of `begin`, which
    /// the effect asks for at times between two frames, as those of second fields are. To the
    /// effect an exception is a refusal; it is kept for rethrowFailure.
    ComPtr<IDSImage> imageAt(double seconds) override;

    /// Throws the exception that a request since `begin` ended with.
    void rethrowFailure();

private:
    /// The picture at hand in the image.
    AtHand readAtHand(runtime::KeptImage& kept) const;
    bool isAtHand(double seconds) const;
    ComPtr<CDSMemoryImage> otherImage(double seconds);
    /// An image for the picture; what the picture lacks of the frame is 0.
    ComPtr<CDSMemoryImage> imageFor(const SourcePicture* picture, runtime::KeptImage& kept) const;

    Frame frame_;
    runtime::KeptImage input_;
    runtime::KeptImage other_;
    std::exception_ptr failure_;
};

}  // namespace ruvex::adapters
