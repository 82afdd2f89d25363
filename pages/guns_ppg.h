// The page of the electron guns.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class GunsPPG final : public VxDsPPG {
public:
    GunsPPG();

    const CDSPPGControlMap* GetControlMap() override;

    /// Enables the numbers for a colour television only.
    void UpdateGunControls();
    void OnResetPage();

    VxPPGDoubleControl tvBrightnessRed, tvBrightnessGreen, tvBrightnessBlue;
    VxPPGDoubleControl gunAlignRedX, gunAlignRedY, gunAlignGreenX, gunAlignGreenY;
    VxPPGDoubleControl gunAlignBlueX, gunAlignBlueY;
    VxPPGIntControl tvType;

protected:
    void updateControls() override { UpdateGunControls(); }
    void reactToNotification() override;
};

}  // namespace ruvex
