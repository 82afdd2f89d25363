#include "parameters/control_rules.h"

#include <algorithm>

#include "parameters/parameter_rows.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using Page = ParameterPage;

// Values of the deciding parameters: indices of kTvTypes and kShashTypes, and a check box.
constexpr int kColourTv = 0;
constexpr int kTintedTv = 2;
constexpr int kRandomShash = 5;
constexpr int kOn = 1;

constexpr Id kColourControl[] = {Id::TvColour};
constexpr Id kTintControls[] = {Id::TintColourR, Id::TintColourG, Id::TintColourB};
constexpr Id kGunControls[] = {Id::TvBrightnessRed, Id::TvBrightnessGreen, Id::TvBrightnessBlue,
                               Id::GunAlignRedX,    Id::GunAlignRedY,      Id::GunAlignGreenX,
                               Id::GunAlignGreenY,  Id::GunAlignBlueX,     Id::GunAlignBlueY};
constexpr Id kColourLossControls[] = {Id::ColourDegradeMax, Id::ColourThreshold};
constexpr Id kPeriodControl[] = {Id::ShashPeriod};
constexpr Id kLensControls[] = {Id::FishEyeRadius, Id::FishEyePower, Id::Filter};

// A grey television ("B & W") has neither of the first two.
constexpr ControlRule kControlRules[] = {
    {Page::Main, Id::TvType, kColourTv, ControlState::Show, kColourControl},
    {Page::Main, Id::TvType, kTintedTv, ControlState::Show, kTintControls},
    {Page::Guns, Id::TvType, kColourTv, ControlState::Enable, kGunControls},
    {Page::Breakup1, Id::TvType, kColourTv, ControlState::Enable, kColourLossControls},
    {Page::Shash, Id::ShashType, kRandomShash, ControlState::Enable, kPeriodControl},
    {Page::Effects, Id::FishEye, kOn, ControlState::Enable, kLensControls},
};

constexpr std::size_t indexOf(Id id) {
    return static_cast<std::size_t>(id);
}

bool hasState(Id id, ControlState state, AllParameterValues values) {
    return std::ranges::all_of(kControlRules, [&](const ControlRule& rule) {
        const bool concerned =
            rule.state == state && std::ranges::find(rule.parameters, id) != rule.parameters.end();
        return !concerned || rule.appliesTo(static_cast<int>(values[indexOf(rule.decidedBy)]));
    });
}

}  // namespace

bool ControlRule::appliesTo(int decidingValue) const {
    if (isCheckBox(kParameterRows[indexOf(decidedBy)].kind)) return decidingValue != 0;
    return decidingValue == value;
}

std::span<const ControlRule> controlRules() {
    return kControlRules;
}

bool isControlShown(ParameterId id, AllParameterValues values) {
    return hasState(id, ControlState::Show, values);
}

bool isControlEnabled(ParameterId id, AllParameterValues values) {
    return hasState(id, ControlState::Enable, values);
}

}  // namespace ruvex
