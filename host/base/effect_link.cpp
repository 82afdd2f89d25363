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

/// Keeps the module loaded until it has run, but not the effect.
class UpdateTask final : public ComObject<IDSTask> {
public:
    explicit UpdateTask(std::weak_ptr<EffectLink> link) : link_(std::move(link)) {}

    void Run() override {
        if (const auto link = link_.lock()) link->updateControls();
    }

private:
    ModuleUse use_;
    std::weak_ptr<EffectLink> link_;
};

}  // namespace

bool EffectLink::setGeometry(const FrameGeometry& geometry) {
    const std::lock_guard lock(mutex_);
    if (geometry == geometry_) return false;
    geometry_ = geometry;
    return true;
}

void EffectLink::follow(VxDsEffect* effect) {
    effect_ = effect;
    followed_ = effect != nullptr;
}

void EffectLink::updateControls() {
    if (effect_) effect_->updateOverlay();
}

void reportGeometry(const std::shared_ptr<EffectLink>& link, const FrameGeometry& geometry) {
    if (!link->setGeometry(geometry) || !link->followed_) return;
    // Without memory for the task, the controls keep their place until the next change.
    guarded(
        [&] { return DSPostToUserInterface(ComPtr<IDSTask>::attach(new UpdateTask(link)).get()); });
}

}  // namespace ruvex
