#include "pages/guns_ppg.h"

#include "pages/resources/resource_ids.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = GunsPPG;

const PageEntry kEntries[] = {
    control<P, &P::tvBrightnessRed>(Id::TvBrightnessRed, IDC_BRIGHTNESS_RED),
    control<P, &P::tvBrightnessGreen>(Id::TvBrightnessGreen, IDC_BRIGHTNESS_GREEN),
    control<P, &P::tvBrightnessBlue>(Id::TvBrightnessBlue, IDC_BRIGHTNESS_BLUE),
    control<P, &P::gunAlignRedX>(Id::GunAlignRedX, IDC_ALIGN_RED_X),
    control<P, &P::gunAlignRedY>(Id::GunAlignRedY, IDC_ALIGN_RED_Y),
    control<P, &P::gunAlignGreenX>(Id::GunAlignGreenX, IDC_ALIGN_GREEN_X),
    control<P, &P::gunAlignGreenY>(Id::GunAlignGreenY, IDC_ALIGN_GREEN_Y),
    control<P, &P::gunAlignBlueX>(Id::GunAlignBlueX, IDC_ALIGN_BLUE_X),
    control<P, &P::gunAlignBlueY>(Id::GunAlignBlueY, IDC_ALIGN_BLUE_Y),
    hidden<P, &P::tvType>(Id::TvType),
    command(IDC_GUNS_RESET, notifyOf(&P::OnResetPage), 1152),
};

}  // namespace

GunsPPG::GunsPPG() : VxDsPPG(IDD_GUNS, 5, "GunsPPG") {
    fillRecords(kEntries);
}

const CDSPPGControlMap* GunsPPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void GunsPPG::UpdateGunControls() {
    applyRules(ParameterPage::Guns);
}

void GunsPPG::OnResetPage() {
    resetPage(ParameterPage::Guns);
}

void GunsPPG::reactToNotification() {
    if (tvType.NotificationUpdates()) UpdateGunControls();
}

}  // namespace ruvex
