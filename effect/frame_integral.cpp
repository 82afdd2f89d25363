#include "effect/frame_integral.h"

namespace ruvex {

FrameIntegral::FrameIntegral(const ParameterCurve& curve, double hostRate, double start)
    : curve_(curve),
      step_(1.0 / hostRate),
      moment_(static_cast<float>(start)),
      next_(moment_ + step_),
      check_(curve.interruption()) {}

double FrameIntegral::upTo(double end) {
    while (end >= next_) {
        const auto reached = static_cast<float>(next_);
        // The time is so large that adding a frame does not change it in single precision.
        if (reached == moment_ || check_.stops()) break;
        sum_ += curve_.rawAt(moment_) * step_;
        moment_ = reached;
        next_ = moment_ + step_;
    }
    const double rest = end - moment_;
    return rest > 0.0 ? sum_ + curve_.rawAt(end) * rest : sum_;
}

double integrateParameter(const ParameterCurve& curve, double hostRate, double start, double end) {
    return FrameIntegral(curve, hostRate, start).upTo(end);
}

}  // namespace ruvex
