// The page of the player, the lens and other effects.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class EffectsPPG final : public VxDsPPG {
public:
    EffectsPPG();

    const CDSPPGControlMap* GetControlMap() override;

    /// Enables the numbers and the filter of the lens while it is on.
    void UpdateFishEyeControls();
    void OnResetPage();

    VxPPGIntControl scanlineWidth, playMode;
    VxPPGDoubleControl playSpeed, emInterference, whiteDot, resolution, blur;
    VxPPGIntControl repeatFrames;
    VxPPGBoolControl fishEye;
    VxPPGDoubleControl fishEyeRadius, fishEyePower;
    VxPPGBoolControl filter;
    VxPPGIntControl borderAlpha;

protected:
    void updateControls() override { UpdateFishEyeControls(); }
    void reactToNotification() override;
};

}  // namespace ruvex
