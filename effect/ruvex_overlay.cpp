// The crop box of the effect in the host's viewer.

#include <string_view>

#include "effect/ruvex.h"
#include "overlay/vx_t_interact.h"
#include "parameters/parameter_table.h"

namespace ruvex {
namespace {

/// The undo step of a drag.
constexpr const wchar_t* kDragName = L"Crop";

const GUID& idOf(ParameterId id) {
    return row(id).identifier;
}

}  // namespace

void Ruvex::linkOverlay() {
    const auto tool = interactiveTool(overlay.tool());
    if (!tool) return;
    overlayCrop_.setParent(&tool->viewZero);
    overlayCrop_.setProperties(idOf(ParameterId::CropLeft), idOf(ParameterId::CropRight),
                               idOf(ParameterId::CropBottom), idOf(ParameterId::CropTop));
    overlayCrop_.setState(overlayCrop_.state & ~std::uint32_t{VxTObject::kVisible});
    tool->SetInteractionName(kDragName);
    tool->AddDsObject(&overlayCrop_);
    if (overlayPlaced_) return;
    updateOverlay();
    overlayPlaced_ = true;
}

void Ruvex::pageActivated(const char* page, std::int32_t, std::int32_t) {
    const auto tool = interactiveTool(overlay.tool());
    if (!tool) return;
    const bool shown = page && page == std::string_view("crop");
    const std::uint32_t others = overlayCrop_.state & ~std::uint32_t{VxTObject::kVisible};
    overlayCrop_.setState(shown ? others | VxTObject::kVisible : others);
    updateOverlay();
    tool->Invalidate();
}

/// Limits the box to the input. A frame without an input leaves it where it was.
void Ruvex::updateOverlay() {
    const auto tool = interactiveTool(overlay.tool());
    if (!tool) return;
    const PictureGeometry picture = link->takeInput();
    const DSFloatPair low = picture.origin;
    const DSFloatPair size = picture.size;
    const bool hasArea = size.x > 0.0f && size.y > 0.0f;
    overlayCrop_.limitFlags |= VxTRectangle::kLimited;
    if (hasArea) overlayCrop_.limits = {low.x, low.y, low.x + size.x, low.y + size.y};
    overlayCrop_.readProperties();
    if (hasArea) tool->SetSourceRect({low.x, low.y}, {size.x, size.y});
}

}  // namespace ruvex
