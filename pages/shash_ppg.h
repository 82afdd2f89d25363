// The page of the shash.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class ShashPPG final : public VxDsPPG {
public:
    ShashPPG();

    const CDSPPGControlMap* GetControlMap() override;

    /// Enables the period for shash of random type only.
    void UpdateShashControls();
    void OnResetPage();

    VxPPGIntControl shashType;
    VxPPGDoubleControl shashPeriod, shashAmountMax, shashThreshold;

protected:
    void updateControls() override { UpdateShashControls(); }
    void reactToNotification() override;
};

}  // namespace ruvex
