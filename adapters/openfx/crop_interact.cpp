#include "adapters/openfx/crop_interact.h"

#include <memory>
#include <mutex>
#include <set>
#include <thread>
#include <utility>

#include "adapters/openfx/instance.h"
#include "adapters/openfx/never_destroyed.h"

namespace ruvex::openfx {
namespace {

/// The box of the process.
struct SharedBox {
    std::mutex mutex;  ///< Of all members but the box itself, which its thread alone uses.
    std::thread::id thread{};
    std::unique_ptr<CropBox> box{};
    std::set<OfxInteractHandle> interacts{};  ///< Those that exist.
    OfxInteractHandle dragging = nullptr;     ///< Null without a drag.
    Crop dragged{};                           ///< At the begin of the drag.
};

SharedBox& shared() {
    return neverDestroyed<SharedBox>();
}

OfxImageEffectHandle effectOf(const InteractAction& action) {
    void* effect = action.in.getPointer(kOfxPropEffectInstance);
    if (!effect) effect = interactProperties(action).getPointer(kOfxPropEffectInstance);
    return static_cast<OfxImageEffectHandle>(effect);
}

double timeOf(const InteractAction& action) {
    return action.in.getDouble(kOfxPropTime, 0.0);
}

/// No value for a region that no picture has.
std::optional<PicturePlace> placeOf(const Instance& instance, double time) {
    const auto region = instance.regionAt(time);
    const double aspect = instance.source().pixelAspect();
    const auto pixels = region ? pixelsOf(*region, pixelScale({1.0, 1.0}, aspect)) : std::nullopt;
    if (!pixels) return std::nullopt;
    return PicturePlace{.left = pixels->x1 * aspect,
                        .bottom = static_cast<double>(pixels->y1),
                        .width = pixels->width(),
                        .height = pixels->height(),
                        .pixelAspect = aspect};
}

std::optional<OfxPointD> penOf(const InteractAction& action) {
    return action.in.findPointD(kOfxInteractPropPenPosition);
}

double changed(double now, double before, double after) {
    return before == after ? now : after;
}

/// Sets what was dragged. The rest may have changed in the host during the drag.
void writeDragged(const Instance& instance, double time, const Crop& before, const Crop& after) {
    const Crop now = instance.cropAt(time);
    instance.setCrop(time, {.left = changed(now.left, before.left, after.left),
                            .right = changed(now.right, before.right, after.right),
                            .bottom = changed(now.bottom, before.bottom, after.bottom),
                            .top = changed(now.top, before.top, after.top)});
}

/// Destroys the box if it is the calling thread's. One on another thread stays, since its window
/// belongs to that.
void closeBox(SharedBox& all) {
    if (all.thread != std::this_thread::get_id()) return;
    all.box.reset();
    all.thread = {};
}

}  // namespace

/// What the host's objects behind an overlay say at one time.
struct CropInteract::View {
    PicturePlace place{};
    Crop crop{};
};

void closeCropBox() {
    SharedBox& all = shared();
    const std::lock_guard lock(all.mutex);
    if (!all.dragging) closeBox(all);
}

OfxStatus CropInteract::create() const {
    const std::lock_guard lock(shared().mutex);
    shared().interacts.insert(action_.interact);
    return kOfxStatOK;
}

OfxStatus CropInteract::destroy() const {
    SharedBox& all = shared();
    const std::lock_guard lock(all.mutex);
    all.interacts.erase(action_.interact);
    const bool dragged = all.dragging == action_.interact;
    if (dragged) all.dragging = nullptr;
    if (dragged || all.interacts.empty()) closeBox(all);
    return kOfxStatOK;
}

/// No value if the user has hidden the controls, if the host does not say whose they are, and
/// without a picture.
std::optional<CropInteract::View> CropInteract::view() const {
    const OfxImageEffectHandle effect = effectOf(action_);
    if (!effect) return std::nullopt;
    const Instance instance(action_.host, effect);
    const double time = timeOf(action_);
    if (instance.hidesOverlayControls(time)) return std::nullopt;
    const auto place = placeOf(instance, time);
    if (!place) return std::nullopt;
    return View{*place, instance.cropAt(time)};
}

CropBox* CropInteract::boxFor(const View& view) const {
    SharedBox& all = shared();
    const std::lock_guard lock(all.mutex);
    if (!all.box) all.thread = std::this_thread::get_id();
    if (all.thread != std::this_thread::get_id()) return nullptr;
    if (all.dragging) return all.dragging == action_.interact ? all.box.get() : nullptr;
    // Nobody drags: a drag of the box is one whose overlay is gone.
    if (!all.box || all.box->isDragging() || all.box->place() != view.place) {
        // There may be one viewer in a process.
        all.box.reset();
        all.box = std::make_unique<CropBox>(view.place);
    }
    all.box->setCrop(view.crop);
    return all.box.get();
}

bool CropInteract::isDragging() const {
    const std::lock_guard lock(shared().mutex);
    return shared().dragging == action_.interact;
}

void CropInteract::requestRedraw() const {
    const auto redraw = action_.host.interact->interactRedraw;
    if (redraw) redraw(action_.interact);
}

OfxStatus CropInteract::draw() const {
    const auto shown = view();
    CropBox* const box = shown ? boxFor(*shown) : nullptr;
    return box && box->draw() ? kOfxStatOK : kOfxStatReplyDefault;
}

OfxStatus CropInteract::penDown() const {
    const auto shown = view();
    const auto pen = penOf(action_);
    CropBox* const box = shown && pen ? boxFor(*shown) : nullptr;
    if (!box || isDragging() || !box->press(pen->x, pen->y)) return kOfxStatReplyDefault;
    {
        const std::lock_guard lock(shared().mutex);
        shared().dragging = action_.interact;
        shared().dragged = box->crop();
    }
    requestRedraw();
    return kOfxStatOK;
}

OfxStatus CropInteract::penMotion() const {
    const auto shown = view();
    const auto pen = penOf(action_);
    CropBox* const box = shown && pen ? boxFor(*shown) : nullptr;
    if (!box) return kOfxStatReplyDefault;
    box->move(pen->x, pen->y);
    if (box->takeRedraw()) requestRedraw();
    // A pen that only passes over the lines is for others, too.
    return isDragging() ? kOfxStatOK : kOfxStatReplyDefault;
}

OfxStatus CropInteract::penUp() const {
    return endDrag(penOf(action_));
}

OfxStatus CropInteract::loseFocus() const {
    return endDrag(std::nullopt);
}

OfxStatus CropInteract::endDrag(std::optional<OfxPointD> pen) const {
    SharedBox& all = shared();
    CropBox* box = nullptr;
    Crop before;
    {
        const std::lock_guard lock(all.mutex);
        const bool mine = all.thread == std::this_thread::get_id();
        if (all.dragging != action_.interact || !mine) return kOfxStatReplyDefault;
        all.dragging = nullptr;
        box = all.box.get();
        before = all.dragged;
    }
    if (pen) {
        box->release(pen->x, pen->y);
    } else {
        box->release();
    }
    if (const OfxImageEffectHandle effect = effectOf(action_)) {
        writeDragged({action_.host, effect}, timeOf(action_), before, box->crop());
    }
    requestRedraw();
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
