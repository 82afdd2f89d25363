#include "stages/colour_loss.h"

namespace ruvex {
namespace {

// The amounts at which the stages Swap and Drain end; compared in double.
constexpr double kSwapEnds = 0.2;
constexpr double kDrainEnds = 0.4;

}  // namespace

ColourLoss colourLoss(float amount) {
    const double d = amount;
    if (d > kDrainEnds) return {ColourLoss::Stage::Grey, amount};
    ColourLoss loss;
    if (d > 0.0) loss.stage = ColourLoss::Stage::Swap;
    if (d > kSwapEnds) loss.stage = ColourLoss::Stage::Drain;
    if (d < kDrainEnds && d > kSwapEnds) {
        const float t = (amount - 0.2f) / 0.2f;
        loss.weight = ((1.0f - t) * t + 1.0f) * t;
    } else if (d < kSwapEnds) {
        loss.weight = amount / 0.2f;
    } else {
        loss.weight = amount;
    }
    return loss;
}

}  // namespace ruvex
