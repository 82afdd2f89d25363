#include "pages/ppg_pair.h"

#include "pages/control_interface.h"
#include "pages/vx_ds_ppg.h"
#include "sdk/controls/number_control.h"

namespace ruvex {

void VxPPGPair::show(int command) const {
    if (!page) return;
    if (controlId != 0) ShowWindow(window(), command);
    if (labelId != 0) ShowWindow(page->item(labelId), command);
}

HWND VxPPGPair::window() const {
    return page && controlId != 0 ? page->item(controlId) : nullptr;
}

void VxPPGPair::Enable(bool enable) const {
    if (page && controlId != 0) EnableWindow(window(), enable ? TRUE : FALSE);
}

void VxPPGPair::SetRange(double low, double high) const {
    const auto number = controlInterface<IDSNumberControl>(window());
    if (!number) return;
    const VARIANT from = DSVariantFromReal(low);
    const VARIANT to = DSVariantFromReal(high);
    number->SetRange(&from, &to);
}

}  // namespace ruvex
