// Saving and restoring a processor's window around a part of its work.

#pragma once

#include <array>
#include <cstdint>

#include "imaging/img_proc.h"

namespace ruvex {

/// Mixin: a stack of up to 10 saved windows of the processor that owns it.
class VxIPWindowStack {
public:
    static constexpr int kDepth = 10;

    explicit VxIPWindowStack(VxImgProc* owner) : owner_(owner) {}

    /// Saves the owner's window. Does nothing and returns false if 10 are saved already.
    bool push();
    /// Saves the window and sets a new one from inclusive corners.
    bool pushAndSet(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    /// Restores the window saved last. Does nothing and returns false if there is none.
    bool pop();

private:
    struct Window {
        std::int32_t x0, x1, y0, y1;
    };

    VxImgProc* owner_;
    std::array<Window, kDepth> saved_{};
    int depth_ = 0;
};

}  // namespace ruvex
