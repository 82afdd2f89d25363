// The last page: what the effect does, its manual, and the switch of the on-screen controls.

#pragma once

#include "pages/vx_ds_ppg.h"

namespace ruvex {

class HelpPPG final : public VxDsPPG {
public:
    HelpPPG();

    const CDSPPGControlMap* GetControlMap() override;
    HRESULT OnInitDialog() override;

    /// Shows or hides the on-screen controls. The box starts clear with each page, also while an
    /// earlier page has hidden them.
    void OnHideOverlayChanged();
    void OnOnlineHelp();

    VxPPGBoolControl hideOverlay;
};

}  // namespace ruvex
