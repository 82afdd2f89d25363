// A level of OpenGL's model-view matrix that ends with a scope.

#pragma once

#include "overlay/draw.h"

namespace ruvex {

/// Saves the model-view matrix and restores it in the destructor.
class TransformLevel {
public:
    TransformLevel() { VxTDraw::pushTransform(); }
    TransformLevel(const TransformLevel&) = delete;
    TransformLevel& operator=(const TransformLevel&) = delete;
    ~TransformLevel() { VxTDraw::popTransform(); }
};

}  // namespace ruvex
