#include "imaging/window_stack.h"

namespace ruvex {

bool VxIPWindowStack::push() {
    if (depth_ == kDepth) return false;
    saved_[depth_++] = {owner_->x0, owner_->x1, owner_->y0, owner_->y1};
    return true;
}

bool VxIPWindowStack::pushAndSet(std::int32_t left, std::int32_t top, std::int32_t right,
                                 std::int32_t bottom) {
    if (!push()) return false;
    owner_->setWindow(left, top, right, bottom);
    return true;
}

bool VxIPWindowStack::pop() {
    if (depth_ == 0) return false;
    const Window& window = saved_[--depth_];
    owner_->x0 = window.x0;
    owner_->x1 = window.x1;
    owner_->y0 = window.y0;
    owner_->y1 = window.y1;
    return true;
}

}  // namespace ruvex
