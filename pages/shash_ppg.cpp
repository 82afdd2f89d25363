#include "pages/shash_ppg.h"

#include "pages/resources/resource_ids.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = ShashPPG;

const PageEntry kEntries[] = {
    control<P, &P::shashType>(Id::ShashType, IDC_SHASH_TYPE, notifyOf(&P::UpdateShashControls)),
    control<P, &P::shashPeriod>(Id::ShashPeriod, IDC_SHASH_PERIOD),
    control<P, &P::shashAmountMax>(Id::ShashAmountMax, IDC_SHASH_AMOUNT_MAX),
    control<P, &P::shashThreshold>(Id::ShashThreshold, IDC_SHASH_THRESHOLD),
    command(IDC_SHASH_RESET, notifyOf(&P::OnResetPage), 1158),
};

}  // namespace

ShashPPG::ShashPPG() : VxDsPPG(IDD_SHASH, 11, "ShashPPG") {
    fillRecords(kEntries);
}

const CDSPPGControlMap* ShashPPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void ShashPPG::UpdateShashControls() {
    applyRules(ParameterPage::Shash);
}

void ShashPPG::OnResetPage() {
    resetPage(ParameterPage::Shash);
}

void ShashPPG::reactToNotification() {
    if (shashType.NotificationUpdates()) UpdateShashControls();
}

}  // namespace ruvex
