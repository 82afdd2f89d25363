#include "pages/breakup1_ppg.h"

#include "pages/resources/resource_ids.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = Breakup1PPG;

const PageEntry kEntries[] = {
    control<P, &P::colourDegradeMax>(Id::ColourDegradeMax, IDC_COLOUR_DEGRADE_MAX),
    control<P, &P::colourThreshold>(Id::ColourThreshold, IDC_COLOUR_THRESHOLD),
    control<P, &P::snowMax>(Id::SnowMax, IDC_SNOW_MAX),
    control<P, &P::snowThreshold>(Id::SnowThreshold, IDC_SNOW_THRESHOLD),
    control<P, &P::snowSoftness>(Id::SnowSoftness, IDC_SNOW_SOFTNESS),
    control<P, &P::snowSparseness>(Id::SnowSparseness, IDC_SNOW_SPARSENESS),
    control<P, &P::numGhosts>(Id::NumGhosts, IDC_NUM_GHOSTS),
    control<P, &P::ghostingThreshold>(Id::GhostingThreshold, IDC_GHOSTING_THRESHOLD),
    control<P, &P::ghostingDistanceMax>(Id::GhostingDistanceMax, IDC_GHOSTING_DISTANCE_MAX),
    control<P, &P::ghostingStrength>(Id::GhostingStrength, IDC_GHOSTING_STRENGTH),
    control<P, &P::ghostingSpeed>(Id::GhostingSpeed, IDC_GHOSTING_SPEED),
    hidden<P, &P::tvType>(Id::TvType),
    command(IDC_BREAKUP1_RESET, notifyOf(&P::OnResetPage), 1154),
};

}  // namespace

Breakup1PPG::Breakup1PPG() : VxDsPPG(IDD_BREAKUP1, 7, "Breakup1PPG") {
    fillRecords(kEntries);
}

const CDSPPGControlMap* Breakup1PPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void Breakup1PPG::UpdateColourControls() {
    applyRules(ParameterPage::Breakup1);
}

void Breakup1PPG::OnResetPage() {
    resetPage(ParameterPage::Breakup1);
}

void Breakup1PPG::reactToNotification() {
    if (tvType.NotificationUpdates()) UpdateColourControls();
}

}  // namespace ruvex
