// The controls of a page: what they show, and what the user does with them.

#include <algorithm>
#include <cmath>
#include <limits>

#include "sdk/com/guarded.h"
#include "sdk/controls/host_controls.h"
#include "sdk/pages/base_property_page.h"

namespace {

std::int32_t wholeNumber(double value) {
    constexpr double kLow = std::numeric_limits<std::int32_t>::min();
    constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(std::round(value), kLow, kHigh));
}

/// The item that shows a value; -1, no item, for a value without one.
WPARAM itemOf(HWND combo, std::int32_t value) {
    const LRESULT count = SendMessageW(combo, CB_GETCOUNT, 0, 0);
    return static_cast<WPARAM>(value >= 0 && value < count ? value : -1);
}

bool isOpened(HWND list) {
    return SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0;
}

}  // namespace

bool CDSBasePropertyPage::isCommandList(const CDSPPGControlMapEntry& entry) const {
    const CDSParamDef* const definition = definitionOf(entry.property);
    return definition && definition->capabilities == DSCAPS_USER_INTERFACE;
}

void CDSBasePropertyPage::listenToControls() {
    for (const CDSPPGControlMapEntry& entry : GetControlMap()->entries()) {
        const HWND control = GetHwndControl(entry.controlId);
        const UINT id = entry.controlId;
        if (const auto number = DSNumberControlOf(control)) {
            number->listen([this, id](DSNumberEdit edit) { onNumber(id, edit); });
        } else if (const auto chip = DSColourChipOf(control)) {
            chip->listen([this, id] { onChip(id); });
        } else if (entry.boundType == VT_I4 && isCommandList(entry)) {
            DSMakeCommandList(control);
        }
    }
}

void CDSBasePropertyPage::SetControlFromBoundVariable(UINT controlId) {
    if (const auto* const entry = GetControlMap()->find(controlId)) showEntry(*entry);
}

void CDSBasePropertyPage::showEntry(const CDSPPGControlMapEntry& entry) {
    const HWND control = GetHwndControl(entry.controlId);
    if (!control || !entry.boundVariable) return;
    const void* const bound = entry.boundVariable(*this);
    const auto number = DSNumberControlOf(control);
    if (entry.boundType == VT_R8) {
        if (number) number->show(*static_cast<const double*>(bound));
        return;
    }
    const std::int32_t value = *static_cast<const std::int32_t*>(bound);
    if (number) {
        number->show(value);
    } else if (entry.boundType == VT_BOOL) {
        SendMessageW(control, BM_SETCHECK, value != 0 ? BST_CHECKED : BST_UNCHECKED, 0);
    } else {
        SendMessageW(control, CB_SETCURSEL, itemOf(control, value), 0);
    }
}

void CDSBasePropertyPage::readControl(const CDSPPGControlMapEntry& entry) {
    const HWND control = GetHwndControl(entry.controlId);
    if (!control || !entry.boundVariable) return;
    void* const bound = entry.boundVariable(*this);
    const auto number = DSNumberControlOf(control);
    if (entry.boundType == VT_R8) {
        if (number) *static_cast<double*>(bound) = number->value();
        return;
    }
    auto& value = *static_cast<std::int32_t*>(bound);
    if (number) {
        value = wholeNumber(number->value());
    } else if (entry.boundType == VT_BOOL) {
        value = SendMessageW(control, BM_GETCHECK, 0, 0) == static_cast<LRESULT>(BST_CHECKED);
    } else {
        // A list without a selection leaves the value as it is.
        const LRESULT item = SendMessageW(control, CB_GETCURSEL, 0, 0);
        if (item != CB_ERR) value = static_cast<std::int32_t>(item);
    }
}

void CDSBasePropertyPage::noteCommand(UINT controlId, UINT code) {
    lastCommand_ = {controlId, code, GetHwndControl(controlId)};
}

void CDSBasePropertyPage::notify(const CDSPPGControlMapEntry& entry) {
    if (entry.notify) (this->*entry.notify)();
}

/// Whether the code is that of a user's change of the entry's control. Numbers and chips report
/// their changes themselves; on Windows their windows also send the codes of clicks.
bool CDSBasePropertyPage::isEdit(const CDSPPGControlMapEntry& entry, UINT code) {
    const HWND control = GetHwndControl(entry.controlId);
    if (DSNumberControlOf(control) || DSColourChipOf(control)) return false;
    if (entry.boundType != VT_I4) return code == BN_CLICKED;
    const DSListEvent event = listChoice_.follow(entry.controlId, isOpened(control), code);
    // The list's selection has moved, but not the property.
    if (event == DSListEvent::Cancelled) showEntry(entry);
    return event == DSListEvent::Chosen;
}

void CDSBasePropertyPage::onCommand(UINT controlId, UINT code) {
    const CDSPPGControlMapEntry* const entry = GetControlMap()->find(controlId);
    if (!entry || !isEdit(*entry, code)) return;
    noteCommand(controlId, code);
    readControl(*entry);
    writeEntry(*entry, DSUNDO_OWN_STEP);
    notify(*entry);
}

void CDSBasePropertyPage::onChip(UINT controlId) {
    const ComPtr<IPropertyPage> kept(this);
    noteCommand(controlId, BN_CLICKED);
    if (const auto* const entry = GetControlMap()->find(controlId)) notify(*entry);
}

void CDSBasePropertyPage::onNumber(UINT controlId, DSNumberEdit edit) {
    const ComPtr<IPropertyPage> kept(this);
    const CDSPPGControlMapEntry* const entry = GetControlMap()->find(controlId);
    if (!entry) return;
    noteCommand(controlId, 0);
    switch (edit) {
        case DSNumberEdit::DragBegan:
            beginDrag();
            return;
        case DSNumberEdit::DragEnded:
            endDrag();
            return;
        case DSNumberEdit::DragCancelled:
            if (cancelDrag()) return;
            // The control shows the value from before the drag again.
            readControl(*entry);
            writeEntry(*entry, DSUNDO_OWN_STEP);
            break;
        case DSNumberEdit::Stepped:
            readControl(*entry);
            writeStep(*entry);
            break;
        default:
            readControl(*entry);
            writeEntry(*entry, dragStyle_);
    }
    notify(*entry);
}

/// Steps of one control in succession become one undo step: they have the same merge key.
void CDSBasePropertyPage::writeStep(const CDSPPGControlMapEntry& entry) {
    const ComPtr<IDSPageSite> site = site_;
    UNDO_STYLE style = DSUNDO_OWN_STEP;
    const HRESULT begun = ruvex::guarded([&] {
        if (!site) return S_FALSE;
        const std::wstring name = CommandName(lastCommand_);
        const auto key = static_cast<std::uint64_t>(dialogId_) << 32 | entry.controlId;
        const DSUNDOINFO info{.name = name.c_str(), .mergeKey = key};
        return site->BeginUndo(&info, &style);
    });
    writeEntry(entry, style);
    if (begun == S_OK) site->EndUndo(style);
}

void CDSBasePropertyPage::beginDrag() {
    if (!site_ || dragStyle_ != DSUNDO_OWN_STEP) return;
    ruvex::guarded([&] {
        const std::wstring name = CommandName(lastCommand_);
        const DSUNDOINFO info{.name = name.c_str(), .mergeKey = 0};
        UNDO_STYLE style = DSUNDO_OWN_STEP;
        const HRESULT status = site_->BeginUndo(&info, &style);
        if (SUCCEEDED(status)) dragStyle_ = style;
        return status;
    });
}

void CDSBasePropertyPage::endDrag() {
    const UNDO_STYLE style = std::exchange(dragStyle_, DSUNDO_OWN_STEP);
    const ComPtr<IDSPageSite> site = site_;
    if (site && style != DSUNDO_OWN_STEP) site->EndUndo(style);
}

bool CDSBasePropertyPage::cancelDrag() {
    const UNDO_STYLE style = std::exchange(dragStyle_, DSUNDO_OWN_STEP);
    const ComPtr<IDSPageSite> site = site_;
    if (!site || style == DSUNDO_OWN_STEP) return false;
    if (SUCCEEDED(site->CancelUndo(style))) return true;
    // Open still, if another bracket was begun inside it.
    site->EndUndo(style);
    return false;
}
