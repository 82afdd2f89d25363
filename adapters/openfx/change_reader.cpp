#include "adapters/openfx/change_reader.h"

#include <algorithm>

#include "adapters/openfx/held_values.h"

namespace ruvex::openfx {
namespace {

/// One real, or one channel of a colour, over the effect's time.
class ParameterCurve final : public HostCurve {
public:
    ParameterCurve(const HostParameter& parameter, const ParameterRow& row, int channel,
                   const EffectClock& clock)
        : parameter_(parameter), row_(row), channel_(channel), clock_(clock) {}

    double valueAt(double frame) const override {
        const double time = frame + clock_.firstFrame;
        if (channel_ == kNoChannel) return heldReal(row_, parameter_.realAt(time));
        return heldReal(row_, channelValue(parameter_.colourAt(time), channel_));
    }

private:
    const HostParameter& parameter_;
    const ParameterRow& row_;
    int channel_;
    EffectClock clock_;
};

}  // namespace

ChangeReader::ChangeReader(const HostParameter& parameter, double hostTime,
                           const EffectClock& clock)
    : parameter_(parameter), clock_(clock), frame_(clock.frameAt(hostTime)) {
    if (!parameter.isAnimating()) return;
    animating_ = true;
    for (const double time : parameter.keyTimes()) keyFrames_.push_back(time - clock.firstFrame);
}

looks::ParameterChange ChangeReader::read(const ParameterRow& row, int channel) const {
    std::vector<FrameKey> keys = keysOf(ParameterCurve(parameter_, row, channel, clock_));
    if (channel != kNoChannel) {
        for (FrameKey& key : keys) key.value = roundedPercent(key.value);
    }
    return changeOf(row.id, keys, clock_.rate);
}

std::vector<FrameKey> ChangeReader::keysOf(const HostCurve& curve) const {
    if (!animating_) return {{frame_, curve.valueAt(frame_)}};
    return sampleCurve(curve, keyFrames_, std::min(0.0, frame_), frame_);
}

}  // namespace ruvex::openfx
