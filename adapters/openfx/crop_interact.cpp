#include "adapters/openfx/crop_interact.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <new>
#include <thread>
#include <utility>

#include "adapters/openfx/instance.h"

namespace ruvex::openfx {
namespace {

/// The box of the process.
struct SharedBox {
    std::mutex mutex;  ///< Of all members but the box itself, which its thread alone uses.
    std::thread::id thread{};
    std::unique_ptr<CropBox> box{};
    const CropInteract* dragging = nullptr;
    Crop dragged{};  ///< At the begin of the drag.
    int interacts = 0;
};

/// Never destroyed: hosts may end without destroying their overlays.
SharedBox& shared() {
    alignas(SharedBox) static std::byte storage[sizeof(SharedBox)];
    static SharedBox* const only = new (storage) SharedBox;
    return *only;
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

/// No value if the user has hidden the controls, if the host does not say whose they are, and
/// without a picture.
std::optional<CropView> viewOf(const InteractAction& action) {
    const OfxImageEffectHandle effect = effectOf(action);
    if (!effect) return std::nullopt;
    const Instance instance(action.host, effect);
    const double time = timeOf(action);
    if (instance.hidesOverlayControls(time)) return std::nullopt;
    const auto place = placeOf(instance, time);
    if (!place) return std::nullopt;
    return CropView{*place, instance.cropAt(time)};
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

void requestRedraw(const InteractAction& action) {
    const OfxInteractSuiteV1* const suite = action.host.interact;
    if (suite && suite->interactRedraw) suite->interactRedraw(action.interact);
}

}  // namespace

CropInteract::CropInteract() {
    const std::lock_guard lock(shared().mutex);
    ++shared().interacts;
}

CropInteract::~CropInteract() {
    SharedBox& all = shared();
    const std::lock_guard lock(all.mutex);
    const bool last = --all.interacts == 0;
    const bool dragged = all.dragging == this;
    if (dragged) all.dragging = nullptr;
    // A box on another thread stays, since its window belongs to that.
    if ((last || dragged) && all.thread == std::this_thread::get_id()) {
        all.box.reset();
        all.thread = {};
    }
}

CropBox* CropInteract::boxFor(const CropView& view) const {
    SharedBox& all = shared();
    const std::lock_guard lock(all.mutex);
    if (!all.box) all.thread = std::this_thread::get_id();
    if (all.thread != std::this_thread::get_id()) return nullptr;
    if (all.dragging) return all.dragging == this ? all.box.get() : nullptr;
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
    return shared().dragging == this;
}

OfxStatus CropInteract::draw(const InteractAction& action) {
    const auto view = viewOf(action);
    CropBox* const box = view ? boxFor(*view) : nullptr;
    return box && box->draw() ? kOfxStatOK : kOfxStatReplyDefault;
}

OfxStatus CropInteract::penDown(const InteractAction& action) {
    const auto view = viewOf(action);
    const auto pen = penOf(action);
    CropBox* const box = view && pen ? boxFor(*view) : nullptr;
    if (!box || isDragging() || !box->press(pen->x, pen->y)) return kOfxStatReplyDefault;
    {
        const std::lock_guard lock(shared().mutex);
        shared().dragging = this;
        shared().dragged = box->crop();
    }
    requestRedraw(action);
    return kOfxStatOK;
}

OfxStatus CropInteract::penMotion(const InteractAction& action) {
    const auto view = viewOf(action);
    const auto pen = penOf(action);
    CropBox* const box = view && pen ? boxFor(*view) : nullptr;
    if (!box) return kOfxStatReplyDefault;
    box->move(pen->x, pen->y);
    if (box->takeRedraw()) requestRedraw(action);
    // A pen that only passes over the lines is for others, too.
    return isDragging() ? kOfxStatOK : kOfxStatReplyDefault;
}

OfxStatus CropInteract::penUp(const InteractAction& action) {
    return endDrag(action, penOf(action));
}

OfxStatus CropInteract::loseFocus(const InteractAction& action) {
    return endDrag(action, std::nullopt);
}

OfxStatus CropInteract::endDrag(const InteractAction& action, std::optional<OfxPointD> pen) {
    SharedBox& all = shared();
    CropBox* box = nullptr;
    Crop before;
    {
        const std::lock_guard lock(all.mutex);
        if (all.dragging != this || all.thread != std::this_thread::get_id()) {
            return kOfxStatReplyDefault;
        }
        all.dragging = nullptr;
        box = all.box.get();
        before = all.dragged;
    }
    if (pen) {
        box->release(pen->x, pen->y);
    } else {
        box->release();
    }
    const OfxImageEffectHandle effect = effectOf(action);
    if (effect) writeDragged({action.host, effect}, timeOf(action), before, box->crop());
    requestRedraw(action);
    return kOfxStatOK;
}

}  // namespace ruvex::openfx
