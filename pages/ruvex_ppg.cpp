#include "pages/ruvex_ppg.h"

#include <array>
#include <span>

#include "pages/resources/resource_ids.h"
#include "parameters/presets.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = RuvexPPG;
using Group = VxPPGColourGroup;

constexpr UINT kTintTip = 1129;

const PageEntry kEntries[] = {
    control<P, &P::tvType>(Id::TvType, IDC_TV_TYPE, notifyOf(&P::UpdateTvTypeControls)),
    control<P, &P::seed>(Id::Seed, IDC_SEED),
    control<P, &P::tvContrast>(Id::TvContrast, IDC_TV_CONTRAST),
    control<P, &P::tvBrightness>(Id::TvBrightness, IDC_TV_BRIGHTNESS),
    control<P, &P::tvColour>(Id::TvColour, IDC_TV_COLOUR),
    control<P, &P::masterBreakup>(Id::MasterBreakup, IDC_MASTER_BREAKUP),
    control<P, &P::breakupVariation>(Id::BreakupVariation, IDC_BREAKUP_VARIATION),
    control<P, &P::breakupSpeed>(Id::BreakupSpeed, IDC_BREAKUP_SPEED),
    localOnly(control<P, &P::presets>(Id::Presets, IDC_PRESETS, notifyOf(&P::OnPresetSelected))),
    command(IDC_TINT_CHIP, notifyOf(&P::OnChipChanged), kTintTip),
    control<P, &P::tint, &Group::red>(Id::TintColourR, IDC_TINT_RED,
                                      notifyOf(&P::OnColourNumberChanged)),
    control<P, &P::tint, &Group::green>(Id::TintColourG, IDC_TINT_GREEN,
                                        notifyOf(&P::OnColourNumberChanged)),
    control<P, &P::tint, &Group::blue>(Id::TintColourB, IDC_TINT_BLUE,
                                       notifyOf(&P::OnColourNumberChanged)),
    command(IDC_MAIN_RESET, notifyOf(&P::OnResetPage), 1150),
    hidden<P, &P::tvBrightnessRed>(Id::TvBrightnessRed),
    hidden<P, &P::tvBrightnessGreen>(Id::TvBrightnessGreen),
    hidden<P, &P::tvBrightnessBlue>(Id::TvBrightnessBlue),
    hidden<P, &P::gunAlignRedX>(Id::GunAlignRedX),
    hidden<P, &P::gunAlignRedY>(Id::GunAlignRedY),
    hidden<P, &P::gunAlignGreenX>(Id::GunAlignGreenX),
    hidden<P, &P::gunAlignGreenY>(Id::GunAlignGreenY),
    hidden<P, &P::gunAlignBlueX>(Id::GunAlignBlueX),
    hidden<P, &P::gunAlignBlueY>(Id::GunAlignBlueY),
    hidden<P, &P::colourDegradeMax>(Id::ColourDegradeMax),
    hidden<P, &P::colourThreshold>(Id::ColourThreshold),
    hidden<P, &P::numGhosts>(Id::NumGhosts),
    hidden<P, &P::ghostingThreshold>(Id::GhostingThreshold),
    hidden<P, &P::ghostingDistanceMax>(Id::GhostingDistanceMax),
    hidden<P, &P::ghostingStrength>(Id::GhostingStrength),
    hidden<P, &P::ghostingSpeed>(Id::GhostingSpeed),
    hidden<P, &P::edgeDistortionMax>(Id::EdgeDistortionMax),
    hidden<P, &P::edgeJaggedness>(Id::EdgeJaggedness),
    hidden<P, &P::edgeThreshold>(Id::EdgeThreshold),
    hidden<P, &P::edgeSpeed>(Id::EdgeSpeed),
    hidden<P, &P::snowMax>(Id::SnowMax),
    hidden<P, &P::snowThreshold>(Id::SnowThreshold),
    hidden<P, &P::snowSoftness>(Id::SnowSoftness),
    hidden<P, &P::snowSparseness>(Id::SnowSparseness),
    hidden<P, &P::lineAngle>(Id::LineAngle),
    hidden<P, &P::lineSpacing>(Id::LineSpacing),
    hidden<P, &P::lineSpeedMax>(Id::LineSpeedMax),
    hidden<P, &P::lineThreshold>(Id::LineThreshold),
    hidden<P, &P::vertOffsetMax>(Id::VertOffsetMax),
    hidden<P, &P::vertOffsetThreshold>(Id::VertOffsetThreshold),
    hidden<P, &P::vertRollSpeedMax>(Id::VertRollSpeedMax),
    hidden<P, &P::vertRollThreshold>(Id::VertRollThreshold),
    hidden<P, &P::scanlineWidth>(Id::ScanlineWidth),
    hidden<P, &P::playMode>(Id::PlayMode),
    hidden<P, &P::playSpeed>(Id::PlaySpeed),
    hidden<P, &P::emInterference>(Id::EmInterference),
    hidden<P, &P::whiteDot>(Id::WhiteDot),
    hidden<P, &P::resolution>(Id::Resolution),
    hidden<P, &P::blur>(Id::Blur),
    hidden<P, &P::repeatFrames>(Id::RepeatFrames),
    hidden<P, &P::fishEye>(Id::FishEye),
    hidden<P, &P::fishEyeRadius>(Id::FishEyeRadius),
    hidden<P, &P::fishEyePower>(Id::FishEyePower),
    hidden<P, &P::filter>(Id::Filter),
    hidden<P, &P::shashType>(Id::ShashType),
    hidden<P, &P::shashPeriod>(Id::ShashPeriod),
    hidden<P, &P::shashThreshold>(Id::ShashThreshold),
    hidden<P, &P::shashAmountMax>(Id::ShashAmountMax),
};

/// The values of one preset. Needs no memory, so that a preset is written whole or not at all.
struct PresetValues {
    /// `preset` counts from 0. The values are in the order in which they are written.
    explicit PresetValues(int preset) {
        for (const PresetRow& row : presetTable()) {
            if (const auto value = row.value(preset)) values[count++] = {row.id, *value};
        }
    }

    std::array<ParameterValue, kParameterCount> values{};
    std::size_t count = 0;
};

}  // namespace

RuvexPPG::RuvexPPG() : VxDsPPG(IDD_MAIN, 3, "RuvexPPG") {
    fillRecords(kEntries);
    tint.page = this;
    tint.controlId = IDC_TINT_CHIP;
    tint.labelId = IDC_TINT_GROUP;
    // The tint has no alpha; its record does nothing, and has the identifier of blue.
    tint.alpha.property = row(Id::TintColourB).identifier;
}

const CDSPPGControlMap* RuvexPPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void RuvexPPG::UpdateTvTypeControls() {
    applyRules(ParameterPage::Main);
}

void RuvexPPG::OnPresetSelected() {
    BeginPageUndo();
    const std::int32_t item = presets.Get();
    // Item 0 is the title of the list.
    if (item >= 1 && item <= kPresetCount) {
        const PresetValues preset(item - 1);
        writeValues(std::span(preset.values).first(preset.count));
    }
    EndPageUndo();
    presets.Set(0);
    SetControlFromBoundVariable(IDC_PRESETS);
    UpdateTvTypeControls();
}

void RuvexPPG::OnChipChanged() {
    BeginPageUndo();
    tint.UpdateValuesFromChip();
    EndPageUndo();
}

void RuvexPPG::OnColourNumberChanged() {
    tint.UpdateChipFromValues();
}

void RuvexPPG::OnResetPage() {
    resetPage(ParameterPage::Main);
}

void RuvexPPG::reactToNotification() {
    float rgba[4];
    if (tint.NotificationUpdates(rgba)) tint.ShowInChip(rgba);
    if (tvType.NotificationUpdates()) UpdateTvTypeControls();
}

}  // namespace ruvex
