// Frames of the source at other times.

#pragma once

#include "adapters/common/picture_effect.h"
#include "adapters/openfx/effect_time.h"
#include "adapters/openfx/host_image.h"

namespace ruvex::openfx {

/// Fetches frames of the source for a tape that does not play at normal speed. A time before or
/// after the clip's frames means the nearest of them.
class TapeFrames final : public adapters::OtherFrames {
public:
    /// `timeAtHand` and `renderScale` are those of the frame that is rendered, `alpha` is the form
    /// of alpha where the host does not say.
    TapeFrames(const Host& host, const HostClip& source, const EffectClock& clock,
               double timeAtHand, OfxPointD renderScale, adapters::HostAlpha alpha)
        : host_(host),
          source_(source),
          clock_(clock),
          timeAtHand_(timeAtHand),
          renderScale_(renderScale),
          alpha_(alpha) {}

    /// Also false if the host has no image, or one that cannot be read.
    bool pictureAt(double seconds,
                   const std::function<void(const adapters::SourcePicture&)>& use) override;

private:
    const Host& host_;
    const HostClip& source_;
    EffectClock clock_;
    double timeAtHand_;
    OfxPointD renderScale_;
    adapters::HostAlpha alpha_;
};

/// The host's time of the frame of the source that the effect shows at some moment of its time.
double shownTime(const HostClip& source, const EffectClock& clock, double seconds);

}  // namespace ruvex::openfx
