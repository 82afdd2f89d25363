#include "pages/effects_ppg.h"

#include "pages/resources/resource_ids.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = EffectsPPG;

const PageEntry kEntries[] = {
    control<P, &P::scanlineWidth>(Id::ScanlineWidth, IDC_SCANLINE_WIDTH),
    control<P, &P::playMode>(Id::PlayMode, IDC_PLAY_MODE),
    control<P, &P::playSpeed>(Id::PlaySpeed, IDC_PLAY_SPEED),
    control<P, &P::emInterference>(Id::EmInterference, IDC_EM_INTERFERENCE),
    control<P, &P::whiteDot>(Id::WhiteDot, IDC_WHITE_DOT),
    control<P, &P::resolution>(Id::Resolution, IDC_RESOLUTION),
    control<P, &P::blur>(Id::Blur, IDC_BLUR),
    control<P, &P::repeatFrames>(Id::RepeatFrames, IDC_REPEAT_FRAMES),
    checkBox<P, &P::fishEye>(Id::FishEye, IDC_FISH_EYE, notifyOf(&P::UpdateFishEyeControls)),
    control<P, &P::fishEyeRadius>(Id::FishEyeRadius, IDC_FISH_EYE_RADIUS),
    control<P, &P::fishEyePower>(Id::FishEyePower, IDC_FISH_EYE_POWER),
    checkBox<P, &P::filter>(Id::Filter, IDC_FILTER),
    control<P, &P::borderAlpha>(Id::BorderAlpha, IDC_BORDER_ALPHA),
    command(IDC_EFFECTS_RESET, notifyOf(&P::OnResetPage), 1160),
};

}  // namespace

EffectsPPG::EffectsPPG() : VxDsPPG(IDD_EFFECTS, 13, "EffectsPPG") {
    fillRecords(kEntries);
}

const CDSPPGControlMap* EffectsPPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void EffectsPPG::UpdateFishEyeControls() {
    applyRules(ParameterPage::Effects);
}

void EffectsPPG::OnResetPage() {
    resetPage(ParameterPage::Effects);
}

void EffectsPPG::reactToNotification() {
    if (fishEye.NotificationUpdates()) UpdateFishEyeControls();
}

}  // namespace ruvex
