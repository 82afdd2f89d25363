#include "sdk/controls/colour_chip.h"

#include <algorithm>

#include "sdk/com/com_ptr.h"

namespace {

CDSColourChip::Colour clampedColour(CDSColourChip::Colour colour) {
    for (LONG& component : colour) component = std::clamp<LONG>(component, 0, 255);
    return colour;
}

}  // namespace

HRESULT CDSColourChip::QueryInterface(const GUID& id, void** out) {
    if (!out || id != kModelId) return ComObject::QueryInterface(id, out);
    *out = this;
    AddRef();
    return S_OK;
}

HRESULT CDSColourChip::SetColour(LONG red, LONG green, LONG blue, LONG alpha) {
    replace(clampedColour({red, green, blue, alpha}));
    return S_OK;
}

HRESULT CDSColourChip::GetColour(LONG* red, LONG* green, LONG* blue, LONG* alpha) {
    if (!red || !green || !blue || !alpha) return E_POINTER;
    *red = colour_[0];
    *green = colour_[1];
    *blue = colour_[2];
    *alpha = colour_[3];
    return S_OK;
}

void CDSColourChip::pick(const Colour& colour) {
    const ComPtr<CDSColourChip> alive(this);
    replace(clampedColour(colour));
    // A copy, since the listener may replace itself.
    if (const auto listener = listener_) listener();
}

void CDSColourChip::replace(const Colour& colour) {
    if (colour == colour_) return;
    const ComPtr<CDSColourChip> alive(this);
    colour_ = colour;
    if (const auto observer = observer_) observer();
}
