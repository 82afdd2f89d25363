// The page of the crop, which several effects of the family share.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class FullCropPPG final : public VxDsPPG {
public:
    FullCropPPG();

    const CDSPPGControlMap* GetControlMap() override;
    /// Does not call the base classes' functions: it asks the object for any effect of the family.
    HRESULT OnInitDialog() override;

    /// Writes the chip's colour without an undo bracket: each component is a step of its own.
    void OnChipChanged();
    void OnColourNumberChanged();
    void OnResetPage();

    VxPPGDoubleControl cropLeft, cropRight, cropBottom, cropTop;
    VxPPGIntControl xEdgeMethod, yEdgeMethod;
    VxPPGColourGroup colour;
    VxPPGBoolControl displayCropped;
    /// Has no control in this dialog.
    VxPPGBoolControl blankCropped;

protected:
    void reactToNotification() override;
    /// This page also reacts while it writes the chip's colour.
    bool canSuppress() const override { return false; }
    VxPPGColourGroup* colourGroup() override { return &colour; }
};

}  // namespace ruvex
