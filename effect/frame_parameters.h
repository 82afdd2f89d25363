// The values of all parameters at the time of one frame.

#pragma once

#include <array>

#include "effect/percent.h"
#include "host/base/parameter_reader.h"

namespace ruvex {

/// Valid until the reader's object changes.
class FrameParameters {
public:
    /// Reads every real at `seconds`, clamped for the render.
    FrameParameters(const ParameterReader& reader, double seconds);

    double real(ParameterId id) const { return reals_[static_cast<std::size_t>(id)]; }
    std::int32_t integer(ParameterId id) const { return reader_.integer(id); }
    bool on(ParameterId id) const { return reader_.on(id); }

    /// A percentage as a fraction, in single precision: 100 is exactly 1.
    float fraction(ParameterId id) const { return fractionOf(real(id)); }

private:
    ParameterReader reader_;
    std::array<double, kParameterCount> reals_{};  // 0 for parameters of other kinds
};

}  // namespace ruvex
