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

/// What an amount of loss, a fraction, does. The weight means nothing before the swap begins and
/// once all is grey.
ColourLoss colourLoss(float amount);

}  // namespace ruvex
