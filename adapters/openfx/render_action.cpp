#include "adapters/openfx/render_action.h"

#include <new>
#include <optional>

#include "adapters/common/render_session.h"
#include "adapters/openfx/effect_pool.h"
#include "adapters/openfx/failure.h"
#include "adapters/openfx/host_alpha.h"
#include "adapters/openfx/host_image.h"
#include "adapters/openfx/instance.h"
#include "adapters/openfx/message.h"
#include "adapters/openfx/picture_frame.h"
#include "adapters/openfx/render_arguments.h"
#include "adapters/openfx/source_copy.h"
#include "adapters/openfx/tape_frames.h"
#include "runtime/error.h"

namespace ruvex::openfx {
namespace {

using adapters::HostAlpha;
using adapters::SourcePicture;
using adapters::TargetPicture;

/// What a frame is made from and where it goes.
struct FrameImages {
    std::optional<SourcePicture> source;
    TargetPicture target;
    adapters::PixelRect frame;
    adapters::PixelRect full;  ///< The same at a scale of 1.
};

class FrameRender {
public:
    explicit FrameRender(const Action& action)
        : instance_(action), arguments_(renderArguments(action.in)), source_(instance_.source()) {}

    OfxStatus run() {
        if (instance_.aborted()) return kOfxStatOK;
        const HostImage output(instance_.host(), instance_.output(), arguments_.time);
        const HostImage input(instance_.host(), source_, arguments_.time);
        if (!output.exists()) throw Failure(kOfxStatFailed, "the host gives no image to write");
        if (instance_.aborted()) return kOfxStatOK;
        return renderInto(imagesOf(input, output));
    }

private:
    HostAlpha sourceAlpha() const {
        return alphaOf(source_.properties(), HostAlpha::Premultiplied);
    }

    /// The form of the output's alpha where its image does not say: that of the clip, or else what
    /// the plug-in announces, or else that of the source's image.
    HostAlpha outputAlpha(HostAlpha ofSourceImage) const {
        const HostAlpha source = alphaOf(source_.properties(), ofSourceImage);
        const auto result = instance_.values().resultAlphaAt(arguments_.time);
        return alphaOf(instance_.output().properties(), announcedAlpha(source, result));
    }

    FrameImages imagesOf(const HostImage& input, const HostImage& output) const {
        FrameImages images{};
        HostAlpha alpha = sourceAlpha();
        if (input.exists()) {
            images.source = input.source(alpha, arguments_.scale);
            alpha = images.source->form.alpha;
        }
        images.target = output.target(outputAlpha(alpha));
        const auto& bounds = images.source ? images.source->bounds : images.target.bounds;
        const KnownPicture picture{.region = instance_.regionAt(arguments_.time),
                                   .pixelAspect = source_.pixelAspect(),
                                   .renderScale = arguments_.scale,
                                   .bounds = bounds};
        images.frame =
            pictureFrame(picture, input.properties().findRectI(kOfxImagePropRegionOfDefinition));
        images.full = fullPicture(picture);
        return images;
    }

    adapters::FrameTask taskFor(const FrameImages& images, const EffectClock& clock) const {
        const double time = fieldTime(arguments_.time, arguments_.lines, instance_.firstField());
        const ParameterValues values = instance_.values();
        return {.project =
                    instance_.projectAt(arguments_.time, images.full.width(), images.full.height()),
                .seconds = clock.secondsAt(time),
                .changes = instance_.changesAt(time, clock),
                .frame = images.frame,
                .window = intersection(arguments_.window, images.target.bounds),
                .lines = arguments_.lines,
                .alpha = values.resultAlphaAt(arguments_.time)};
    }

    OfxStatus renderInto(const FrameImages& images) const {
        const EffectClock clock = instance_.clockAt(arguments_.time);
        adapters::FrameTask task = taskFor(images, clock);
        if (task.window.empty()) return kOfxStatOK;
        TapeFrames others(instance_.host(), source_, clock, arguments_.time, arguments_.scale,
                          sourceAlpha());
        if (instance_.hasTemporalAccess()) task.others = &others;
        try {
            // The picture at hand may be a smaller one.
            adapters::checkPictureSize(images.full.width(), images.full.height());
            effectPool().withEffect([&](adapters::PictureEffect& effect) {
                effect.render(task, images.source ? &*images.source : nullptr, images.target);
            });
            return kOfxStatOK;
        } catch (const runtime::OutOfMemory& error) {
            return copyInstead(images, error.what(), kOfxStatErrMemory);
        } catch (const std::bad_alloc&) {
            return copyInstead(images, "there is not enough memory for the frame",
                               kOfxStatErrMemory);
        } catch (const std::exception& error) {
            return copyInstead(images, error.what(), kOfxStatFailed);
        }
    }

    OfxStatus copyInstead(const FrameImages& images, const char* reason, OfxStatus failure) const {
        warn(instance_.host(), instance_.handle(), reason);
        const bool copied = images.source && copySource(*images.source, images.target,
                                                        arguments_.window, arguments_.lines);
        return copied ? kOfxStatOK : failure;
    }

    Instance instance_;
    RenderArguments arguments_;
    HostClip source_;
};

}  // namespace

OfxStatus render(const Action& action) {
    try {
        return FrameRender(action).run();
    } catch (const Failure& failure) {
        warn(action.host, action.effect, failure.what());
        return failure.status();
    }
}

}  // namespace ruvex::openfx
