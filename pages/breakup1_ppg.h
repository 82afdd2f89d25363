// The first page of the breakup: colour, snow and ghosts.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class Breakup1PPG final : public VxDsPPG {
public:
    Breakup1PPG();

    const CDSPPGControlMap* GetControlMap() override;

    /// Enables the two colour numbers for a colour television only.
    void UpdateColourControls();
    void OnResetPage();

    VxPPGDoubleControl colourDegradeMax, colourThreshold;
    VxPPGDoubleControl snowMax, snowThreshold, snowSoftness, snowSparseness;
    VxPPGIntControl numGhosts;
    VxPPGDoubleControl ghostingThreshold, ghostingDistanceMax, ghostingStrength, ghostingSpeed;
    VxPPGIntControl tvType;

protected:
    void updateControls() override { UpdateColourControls(); }
    void reactToNotification() override;
};

}  // namespace ruvex
