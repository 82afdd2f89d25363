#include "pages/help_ppg.h"

#include "host/base/class_ids.h"
#include "overlay/vx_t_interact.h"
#include "pages/manual.h"
#include "pages/resources/resource_ids.h"
#include "parameters/strings.h"

namespace ruvex {
namespace {

using P = HelpPPG;

/// The button's tool-tip has a number, but no text.
constexpr UINT kManualTip = 1163;
/// The effect's description among the module's strings.
constexpr int kDescriptionString = 1161;

const PageEntry kEntries[] = {
    localOnly(control<P, &P::hideOverlay>(ParameterId::HideOverlayControls,
                                          IDC_HIDE_OVERLAY_CONTROLS,
                                          notifyOf(&P::OnHideOverlayChanged))),
    command(IDC_ONLINE_HELP, notifyOf(&P::OnOnlineHelp), kManualTip),
};

}  // namespace

HelpPPG::HelpPPG() : VxDsPPG(IDD_HELP, 15, "HelpPPG") {
    fillRecords(kEntries);
}

const CDSPPGControlMap* HelpPPG::GetControlMap() {
    static PageControlMap map(kEntries, EntryFlags::Own);
    return map.initialized();
}

HRESULT HelpPPG::OnInitDialog() {
    if (const HRESULT status = VxDsPPG::OnInitDialog(); FAILED(status)) return status;
    SetItemText(IDC_COPYRIGHT, "Copyright 2026 The V_Ruvex authors");
    SetItemText(IDC_MAKER, "The V_Ruvex authors");
    SetItemText(IDC_ABOUT_LAST_LINE, "");
    SetItemText(IDC_PRODUCT, "V_Ruvex 0.1.0, for hosts of version 10");
    SetItemText(IDC_DESCRIPTION, strings::text(kDescriptionString));
    return S_OK;
}

void HelpPPG::OnHideOverlayChanged() {
    if (const auto tool = interactiveTool(GetInteractiveTool())) {
        tool->setEnabled(hideOverlay.Get() == 0);
    }
}

void HelpPPG::OnOnlineHelp() {
    OpenManual();
}

}  // namespace ruvex
