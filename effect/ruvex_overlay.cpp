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
    overlayCrop_.setParent(nullptr);
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

void Ruvex::updateOverlay() {
    const auto tool = interactiveTool(overlay.tool());
    if (!tool) return;
    placeCropBox();
    overlayCrop_.readProperties();
    const VxRect& frame = overlayCrop_.limits;
    tool->SetSourceRect({frame.x0, frame.y0}, {frame.x1 - frame.x0, frame.y1 - frame.y0});
}

/// Limits the box to the input. A frame without an input leaves it where it was.
void Ruvex::placeCropBox() {
    const PictureGeometry picture = link->geometry().input;
    overlayCrop_.limitFlags |= VxTRectangle::kLimited;
    if (!(picture.size.x > 0.0f && picture.size.y > 0.0f)) return;
    overlayCrop_.limits = {picture.origin.x, picture.origin.y, picture.origin.x + picture.size.x,
                           picture.origin.y + picture.size.y};
}

}  // namespace ruvex
