// The first page: the television, the level of the signal, and the presets.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

/// Also has records for all parameters of other pages that a preset writes.
class RuvexPPG final : public VxDsPPG {
public:
    RuvexPPG();

    const CDSPPGControlMap* GetControlMap() override;

    /// Shows TV Colour for a colour television, and the tint for a tinted one.
    void UpdateTvTypeControls();
    /// Writes the chosen preset in one undo step and shows the title of the list again.
    void OnPresetSelected();
    void OnChipChanged();
    void OnColourNumberChanged();
    void OnResetPage();

    VxPPGIntControl tvType, seed;
    VxPPGDoubleControl tvContrast, tvBrightness, tvColour;
    VxPPGDoubleControl masterBreakup, breakupVariation, breakupSpeed;
    VxPPGIntControl presets;
    VxPPGColourGroup tint;

    // The records without a control, in the order of the control map.
    VxPPGDoubleControl tvBrightnessRed, tvBrightnessGreen, tvBrightnessBlue;
    VxPPGDoubleControl gunAlignRedX, gunAlignRedY, gunAlignGreenX, gunAlignGreenY;
    VxPPGDoubleControl gunAlignBlueX, gunAlignBlueY;
    VxPPGDoubleControl colourDegradeMax, colourThreshold;
    VxPPGIntControl numGhosts;
    VxPPGDoubleControl ghostingThreshold, ghostingDistanceMax, ghostingStrength, ghostingSpeed;
    VxPPGDoubleControl edgeDistortionMax, edgeJaggedness, edgeThreshold, edgeSpeed;
    VxPPGDoubleControl snowMax, snowThreshold, snowSoftness, snowSparseness;
    VxPPGDoubleControl lineAngle, lineSpacing, lineSpeedMax, lineThreshold;
    VxPPGDoubleControl vertOffsetMax, vertOffsetThreshold, vertRollSpeedMax, vertRollThreshold;
    VxPPGIntControl scanlineWidth, playMode;
    VxPPGDoubleControl playSpeed, emInterference, whiteDot, resolution, blur;
    VxPPGIntControl repeatFrames;
    VxPPGBoolControl fishEye;
    VxPPGDoubleControl fishEyeRadius, fishEyePower;
    VxPPGBoolControl filter;
    VxPPGIntControl shashType;
    VxPPGDoubleControl shashPeriod, shashThreshold, shashAmountMax;

protected:
    void updateControls() override { UpdateTvTypeControls(); }
    void reactToNotification() override;
    VxPPGColourGroup* colourGroup() override { return &tint; }
};

}  // namespace ruvex
