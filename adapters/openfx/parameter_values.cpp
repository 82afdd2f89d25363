#include "adapters/openfx/parameter_values.h"

#include <algorithm>
#include <cmath>

#include "adapters/openfx/curve_sampling.h"
#include "parameters/parameter_table.h"

namespace ruvex::openfx {
namespace {

/// A host's value in the unit of the table; channels of colours have no range of their own.
double heldReal(const ParameterRow& row, std::optional<double> value) {
    if (!value || !std::isfinite(*value)) return row.defaultValue;
    const auto range = row.enteredRange();
    return range ? std::clamp(*value, range->low, range->high) : *value;
}

/// A channel of a colour as a percentage.
std::optional<double> channelValue(const std::optional<HostColour>& colour, int channel) {
    if (!colour) return {};
    return (*colour)[static_cast<std::size_t>(channel)] * kPercentOfWhite;
}

/// Hosts keep colours as floats: 0.65f is to be 65 %.
double roundedPercent(double percent) {
    constexpr double kStepsPerPercent = 1e4;
    return std::round(percent * kStepsPerPercent) / kStepsPerPercent;
}

int heldWhole(const DeclaredParameter& parameter, std::optional<int> value) {
    const auto usual = static_cast<int>(parameter.defaults[0]);
    if (!value) return usual;
    if (parameter.kind == DeclaredKind::CheckBox) return *value != 0 ? 1 : 0;
    if (parameter.kind == DeclaredKind::Choice) {
        const bool exists = *value >= 0 && *value < static_cast<int>(parameter.choices.size());
        return exists ? *value : usual;
    }
    if (!parameter.range) return *value;
    return std::clamp(*value, static_cast<int>(parameter.range->low),
                      static_cast<int>(parameter.range->high));
}

/// Of a parameter that is no colour.
constexpr int kNoChannel = -1;

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

/// The changes of one parameter.
class ChangeReader {
public:
    ChangeReader(const HostParameter& parameter, double hostTime, const EffectClock& clock)
        : parameter_(parameter), clock_(clock), frame_(clock.frameAt(hostTime)) {
        if (!parameter.isAnimating()) return;
        animating_ = true;
        for (const double time : parameter.keyTimes()) {
            keyFrames_.push_back(time - clock.firstFrame);
        }
    }

    looks::ParameterChange read(const ParameterRow& row, int channel) const {
        std::vector<FrameKey> keys = keysOf(ParameterCurve(parameter_, row, channel, clock_));
        if (channel != kNoChannel) {
            for (FrameKey& key : keys) key.value = roundedPercent(key.value);
        }
        return changeOf(row.id, keys, clock_.rate);
    }

private:
    std::vector<FrameKey> keysOf(const ParameterCurve& curve) const {
        if (!animating_) return {{frame_, curve.valueAt(frame_)}};
        return sampleCurve(curve, keyFrames_, std::min(0.0, frame_), frame_);
    }

    const HostParameter& parameter_;
    EffectClock clock_;
    double frame_;
    bool animating_ = false;
    std::vector<double> keyFrames_;
};

}  // namespace

int ParameterValues::wholeAt(const DeclaredParameter& parameter, double hostTime) const {
    return heldWhole(parameter, set_.find(parameter.name).wholeAt(hostTime));
}

double ParameterValues::valueAt(ParameterId id, double hostTime) const {
    const ParameterRow& wanted = row(id);
    const DeclaredParameter* const declared = declaredFor(id);
    if (!declared) return wanted.defaultValue;
    if (declared->kind == DeclaredKind::Real) {
        return heldReal(wanted, set_.find(declared->name).realAt(hostTime));
    }
    if (declared->kind != DeclaredKind::Colour) return wholeAt(*declared, hostTime);
    const int channel = static_cast<int>(id) - static_cast<int>(declared->row->id);
    if (channel >= kColourChannels) return wanted.defaultValue;
    const auto colour = set_.find(declared->name).colourAt(hostTime);
    return roundedPercent(heldReal(wanted, channelValue(colour, channel)));
}

adapters::ResultAlpha ParameterValues::resultAlphaAt(double hostTime) const {
    return static_cast<adapters::ResultAlpha>(
        wholeAt(ownParameter(Purpose::ResultAlpha), hostTime));
}

int ParameterValues::firstFrameAt(double hostTime) const {
    return wholeAt(ownParameter(Purpose::FirstFrame), hostTime);
}

int ParameterValues::frameWidthAt(double hostTime) const {
    return wholeAt(ownParameter(Purpose::FrameWidth), hostTime);
}

int ParameterValues::frameHeightAt(double hostTime) const {
    return wholeAt(ownParameter(Purpose::FrameHeight), hostTime);
}

std::vector<looks::ParameterChange> ParameterValues::changesAt(double hostTime,
                                                               const EffectClock& clock) const {
    std::vector<looks::ParameterChange> changes;
    for (const DeclaredParameter& parameter : parameterList()) {
        if (!parameter.row || !parameter.rendered) continue;
        const HostParameter found = set_.find(parameter.name);
        if (parameter.kind == DeclaredKind::Real) {
            changes.push_back(
                ChangeReader(found, hostTime, clock).read(*parameter.row, kNoChannel));
        } else if (parameter.kind == DeclaredKind::Colour) {
            const ChangeReader reader(found, hostTime, clock);
            for (int channel = 0; channel < kColourChannels; ++channel) {
                changes.push_back(reader.read(channelRow(*parameter.row, channel), channel));
            }
        } else {
            const int value = heldWhole(parameter, found.wholeAt(hostTime));
            changes.push_back(looks::Setting{parameter.row->id, static_cast<double>(value)});
        }
    }
    return changes;
}

}  // namespace ruvex::openfx
