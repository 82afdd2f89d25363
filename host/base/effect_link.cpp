#include "host/base/effect_link.h"

#include <utility>

#include "host/base/module_use.h"
#include "host/base/vx_ds_effect.h"
#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "sdk/com/guarded.h"
#include "sdk/com/ui_queue.h"

namespace ruvex {
namespace {

bool sameRectangle(const PictureGeometry& a, const PictureGeometry& b) {
    return a.origin == b.origin && a.size == b.size;
}

}  // namespace

/// Keeps the module loaded until it has run, but not the effect.
class EffectLink::UpdateTask final : public ComObject<IDSTask> {
public:
    explicit UpdateTask(std::weak_ptr<EffectLink> link) : link_(std::move(link)) {}

    void Run() override {
        if (const auto link = link_.lock()) link->updateControls();
    }

private:
    /// A host that gives up its queue releases tasks without running them.
    ~UpdateTask() override {
        if (const auto link = link_.lock()) link->endUpdate();
    }

    ModuleUse use_;
    std::weak_ptr<EffectLink> link_;
};

FrameGeometry EffectLink::geometry() const {
    const std::lock_guard lock(mutex_);
    return geometry_;
}

void EffectLink::setGeometry(const FrameGeometry& geometry) {
    const std::lock_guard lock(mutex_);
    geometry_ = geometry;
}

void EffectLink::follow(VxDsEffect* effect) {
    effect_ = effect;
    const std::lock_guard lock(mutex_);
    followed_ = effect != nullptr;
}

PictureGeometry EffectLink::takeInput() {
    const std::lock_guard lock(mutex_);
    return taken_ = geometry_.input;
}

/// Stores the geometry; true if the caller has to post a task.
bool EffectLink::needsUpdate(const FrameGeometry& geometry) {
    const std::lock_guard lock(mutex_);
    geometry_ = geometry;
    if (!followed_ || pending_ || sameRectangle(geometry_.input, taken_)) return false;
    pending_ = true;
    return true;
}

void EffectLink::endUpdate() {
    const std::lock_guard lock(mutex_);
    pending_ = false;
}

void EffectLink::updateControls() {
    endUpdate();
    if (effect_) effect_->updateOverlay();
}

void reportGeometry(const std::shared_ptr<EffectLink>& link, const FrameGeometry& geometry) {
    if (!link->needsUpdate(geometry)) return;
    // Without a queue, or memory for the task, the controls keep their place until they are updated
    // for another reason.
    const HRESULT posted = guarded([&] {
        const auto task = ComPtr<IDSTask>::attach(new EffectLink::UpdateTask(link));
        return DSPostToUserInterface(task.get());
    });
    if (posted != S_OK) link->endUpdate();
}

}  // namespace ruvex
