// How a failing signal loses its colour.

#pragma once

namespace ruvex {

/// How far the colour has degraded: the stage that an amount has reached, and the weight k by which
/// channels are swapped or drained.
struct ColourLoss {
    enum class Stage { None, Swap, Drain, Grey };

    Stage stage = Stage::None;
    float weight = 0.0f;
};

/// The stage and the weight for an amount of loss, a fraction. The weight is not used in the stages
/// None and Grey.
ColourLoss colourLoss(float amount);

}  // namespace ruvex
