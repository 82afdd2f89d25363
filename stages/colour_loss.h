// The loss of colour as the signal level rises.

#pragma once

namespace ruvex {

/// The state of the colour: its stage, and the weight k (0 to 1) with which channels are swapped or
/// drained in this stage.
struct ColourLoss {
    enum class Stage { None, Swap, Drain, Grey };

    Stage stage = Stage::None;
    float weight = 0.0f;
};

/// The stage and weight for an amount of loss, a fraction. The stages None and Grey do not use the
/// weight.
ColourLoss colourLoss(float amount);

}  // namespace ruvex
