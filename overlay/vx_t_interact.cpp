#include "overlay/vx_t_interact.h"

#include <cmath>

#include "host/base/class_ids.h"
#include "host/base/picture_geometry.h"
#include "overlay/whole_units.h"
#include "sdk/effect/content.h"

namespace ruvex {
namespace {

/// The handles of the two anchors, which can be moved along both axes.
constexpr std::uint32_t kAnchorHandles = 3;
constexpr float kSourceTolerance = 0.01f;
constexpr LONG kMainButton = 1;

bool differs(VxPosition a, VxPosition b) {
    return std::fabs(a.x - b.x) > kSourceTolerance || std::fabs(a.y - b.y) > kSourceTolerance;
}

VxPosition middleOf(VxPosition origin, VxPosition size) {
    return {size.x * 0.5f + origin.x, size.y * 0.5f + origin.y};
}

}  // namespace

VxTInteract::VxTInteract()
    : frameCentre("Frame Centre", kAnchorHandles),
      srcCentre("Src Centre", kAnchorHandles),
      viewZero("View Zero") {
    const double userX = projectSize(kDSProjectUserSizeX);
    const double userY = projectSize(kDSProjectUserSizeY);
    const double worldY = projectSize(kDSProjectWorldSizeY);
    if (userX > 0.0 && userY > 0.0 && worldY > 0.0) {
        frameWidth = wholeUnits(userY * userX / worldY);
        frameHeight = wholeUnits(userY);
        userScale = static_cast<float>(worldY / userY);
    }
    sourceSize = {static_cast<float>(frameWidth), static_cast<float>(frameHeight)};
    // The order in which they are drawn, and the reverse of the order in which they are hit.
    addAnchor(frameCentre, middleOf({}, sourceSize));
    addAnchor(srcCentre, middleOf(sourceOrigin, sourceSize));
    viewZero.groupFlags &= ~std::uint32_t{VxTGroup::kDrawBackground | VxTGroup::kSwallowHits};
    addObject(&viewZero);
}

VxTInteract::~VxTInteract() {
    for (auto* node = dsObjects.head; node; node = node->next) node->item->tool = nullptr;
}

void VxTInteract::addAnchor(VxT2DAxisGroup& anchor, VxPosition centre) {
    anchor.setCentre(centre.x, centre.y);
    anchor.setState(anchor.state | VxTObject::kVisible);
    anchor.groupFlags &= ~std::uint32_t{VxT2DAxisGroup::kHasAxis};
    anchor.updateBounds();
    addObject(&anchor);
}

HRESULT VxTInteract::QueryInterface(const GUID& id, void** out) {
    if (!out) return E_POINTER;
    if (id != kToolClassId) return CDSInteractiveTool::QueryInterface(id, out);
    *out = this;
    AddRef();
    return S_OK;
}

ComPtr<VxTInteract> interactiveTool(IUnknown* object) {
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(kToolClassId, &found))) return {};
    return ComPtr<VxTInteract>::attach(static_cast<VxTInteract*>(found));
}

HRESULT VxTInteract::aggregationResult() {
    return CLASS_E_NOAGGREGATION;
}

void VxTInteract::Invalidate() {
    InvalidateLayer(VWLAYER_TOOL, nullptr);
}

void VxTInteract::setEnabled(bool enabled) {
    const Kept kept(*this);
    if (!enabled) endPress();
    toolFlags = enabled ? toolFlags | kOverlayEnabled : toolFlags & ~kOverlayEnabled;
    Invalidate();
}

/// Ends a drag, as if the pen had gone up where it was last.
void VxTInteract::endPress() {
    if (isPenDown() == 0) return;
    VxMessage message(VxMessageId::PenUp);
    message.setPosition(penPosition);
    handleMessage(&message, nullptr);
    TerminateInteraction();
}

void VxTInteract::SetSourceRect(VxPosition origin, VxPosition newSize) {
    if (!differs(origin, sourceOrigin) && !differs(newSize, sourceSize)) return;
    sourceOrigin = origin;
    sourceSize = newSize;
    const VxPosition middle = middleOf(origin, newSize);
    srcCentre.setCentre(middle.x, middle.y);
    Invalidate();
}

// Bound objects.

void VxTInteract::AddDsObject(VxTDsObject* object) {
    if (!object || object->tool == this) return;
    dsObjects.append(object);
    if (object->tool) object->tool->RemoveDsObject(object);
    object->tool = this;
    object->readProperties();
    Invalidate();
}

void VxTInteract::RemoveDsObject(VxTDsObject* object) {
    if (dsObjects.removeAll(object)) object->tool = nullptr;
}

bool VxTInteract::GetAnimatedDouble(const GUID& id, double* out, double seconds) {
    if (isLinked == 0 || id == GUID_NoProperty) return false;
    VARIANT value{};
    if (FAILED(GetAnimatedProperty(id, &value, nullptr, seconds)) || value.vt != VT_R8)
        return false;
    *out = value.dblVal;
    return true;
}

bool VxTInteract::GetAnimatedDoubleIfChanged(const GUID& changed, const GUID& id, double* out) {
    if (changed != id && changed != GUID_AllProperties) return false;
    return GetAnimatedDouble(id, out, DSTIME_CURRENT);
}

bool VxTInteract::SetAnimatedDouble(const GUID& id, double value) {
    if (isLinked == 0 || id == GUID_NoProperty) return false;
    const VARIANT variant = DSVariantFromReal(value);
    return SUCCEEDED(SetAnimatedProperty(id, &variant, nullptr, DSTIME_CURRENT, DSUNDO_JOIN));
}

HRESULT VxTInteract::OnPropertyChanged(const GUID& id, const DSVARIANT* value) {
    const Kept kept(*this);
    const HRESULT status = CDSInteractiveTool::OnPropertyChanged(id, value);
    if (FAILED(status)) return status;
    bool moved = false;
    dsObjects.walk([&](VxTDsObject* object) {
        if (object->propertyChanged(id, value) != 0) moved = true;
        return true;
    });
    if (moved) Invalidate();
    return status;
}

HRESULT VxTInteract::OnOnTimeChange(double seconds) {
    if (!isAttached()) return S_OK;
    const Kept kept(*this);
    const HRESULT status = CDSInteractiveTool::OnOnTimeChange(seconds);
    if (FAILED(status)) return status;
    dsObjects.walk([&](VxTDsObject* object) {
        object->timeChanged(seconds);
        return true;
    });
    Invalidate();
    return status;
}

// The pen.

bool VxTInteract::handles(const tagVWPENEVENT* event) const {
    return event && isEnabled();
}

void VxTInteract::sendPen(VxMessageId id, const tagVWPENEVENT& event) {
    VxMessage message(id);
    message.setPosition(
        {static_cast<float>(event.x / userScale), static_cast<float>(event.y / userScale)});
    handleMessage(&message, nullptr);
    if ((managerFlags & kRedrawWanted) != 0) Invalidate();
}

HRESULT VxTInteract::OnPenDown(const tagVWPENEVENT* event) {
    if (!handles(event) || event->button != kMainButton) {
        return CDSInteractiveTool::OnPenDown(event);
    }
    const Kept kept(*this);
    sendPen(VxMessageId::PenDown, *event);
    return OnBeginInteraction(event);
}

HRESULT VxTInteract::OnPenMove(const tagVWPENEVENT* event) {
    if (!handles(event)) return CDSInteractiveTool::OnPenMove(event);
    const Kept kept(*this);
    sendPen(VxMessageId::PenMoved, *event);
    return OnDoInteraction(event);
}

HRESULT VxTInteract::OnPenUp(const tagVWPENEVENT* event) {
    if (!handles(event) || event->button != kMainButton) return CDSInteractiveTool::OnPenUp(event);
    const Kept kept(*this);
    sendPen(VxMessageId::PenUp, *event);
    return TerminateInteraction();
}

// Links to the host.

HRESULT VxTInteract::OnLinkToOperator(IUnknown* object) {
    const HRESULT status = CDSInteractiveTool::OnLinkToOperator(object);
    if (FAILED(status)) {
        OnUnlinkFromOperator();
        return status;
    }
    isLinked = 1;
    return status;
}

HRESULT VxTInteract::OnUnlinkFromOperator() {
    isLinked = 0;
    return CDSInteractiveTool::OnUnlinkFromOperator();
}

HRESULT VxTInteract::OnLinkToViewer(IUnknown* viewer) {
    const HRESULT status = CDSInteractiveTool::OnLinkToViewer(viewer);
    if (FAILED(status)) {
        OnUnlinkFromViewer();
        return status;
    }
    isLinked = 1;
    Invalidate();
    return status;
}

HRESULT VxTInteract::OnUnlinkFromViewer() {
    const Kept kept(*this);
    // A host that has taken the pen from the tool before (IDSViewer::ReleasePen) leaves nothing to
    // do.
    endPress();
    // Without a window the system would redraw the whole desktop.
    if (const HWND window = GetViewerWindow()) InvalidateRect(window, nullptr, FALSE);
    Invalidate();
    isLinked = 0;
    return CDSInteractiveTool::OnUnlinkFromViewer();
}

}  // namespace ruvex
