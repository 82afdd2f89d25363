// The second page of the breakup: edges, creeping lines, vertical offset and roll.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class Breakup2PPG final : public VxDsPPG {
public:
    Breakup2PPG();

    const CDSPPGControlMap* GetControlMap() override;

    void OnResetPage();

    VxPPGDoubleControl edgeDistortionMax, edgeJaggedness, edgeThreshold, edgeSpeed;
    VxPPGDoubleControl lineAngle, lineSpacing, lineSpeedMax, lineThreshold;
    VxPPGDoubleControl vertOffsetMax, vertOffsetThreshold;
    VxPPGDoubleControl vertRollSpeedMax, vertRollThreshold;
};

}  // namespace ruvex
