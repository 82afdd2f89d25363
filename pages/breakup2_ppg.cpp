#include "pages/breakup2_ppg.h"

#include "pages/resources/resource_ids.h"

namespace ruvex {
namespace {

using Id = ParameterId;
using P = Breakup2PPG;

const PageEntry kEntries[] = {
    control<P, &P::edgeDistortionMax>(Id::EdgeDistortionMax, IDC_EDGE_DISTORTION_MAX),
    control<P, &P::edgeJaggedness>(Id::EdgeJaggedness, IDC_EDGE_JAGGEDNESS),
    control<P, &P::edgeThreshold>(Id::EdgeThreshold, IDC_EDGE_THRESHOLD),
    control<P, &P::edgeSpeed>(Id::EdgeSpeed, IDC_EDGE_SPEED),
    control<P, &P::lineAngle>(Id::LineAngle, IDC_LINE_ANGLE),
    control<P, &P::lineSpacing>(Id::LineSpacing, IDC_LINE_SPACING),
    control<P, &P::lineSpeedMax>(Id::LineSpeedMax, IDC_LINE_SPEED_MAX),
    control<P, &P::lineThreshold>(Id::LineThreshold, IDC_LINE_THRESHOLD),
    control<P, &P::vertOffsetMax>(Id::VertOffsetMax, IDC_VERT_OFFSET_MAX),
    control<P, &P::vertOffsetThreshold>(Id::VertOffsetThreshold, IDC_VERT_OFFSET_THRESHOLD),
    control<P, &P::vertRollSpeedMax>(Id::VertRollSpeedMax, IDC_VERT_ROLL_SPEED_MAX),
    control<P, &P::vertRollThreshold>(Id::VertRollThreshold, IDC_VERT_ROLL_THRESHOLD),
    command(IDC_BREAKUP2_RESET, notifyOf(&P::OnResetPage), 1156),
};

}  // namespace

Breakup2PPG::Breakup2PPG() : VxDsPPG(IDD_BREAKUP2, 9, "Breakup2PPG") {
    fillRecords(kEntries);
}

const CDSPPGControlMap* Breakup2PPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

void Breakup2PPG::OnResetPage() {
    resetPage(ParameterPage::Breakup2);
}

}  // namespace ruvex
