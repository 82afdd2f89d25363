// All parameters as they are at the time of one frame.

#pragma once

#include "host/base/parameter_reader.h"

namespace ruvex {

/// The percent factor of the whole render: the single-precision value of 0.01 widened to double.
/// Pictures depend on its last bits.
inline constexpr double kPercent = 0.01f;

class FrameParameters {
public:
    /// Reads every parameter at `time`, with the clamps of the render.
    FrameParameters(const ParameterReader& reader, double time);

    double real(ParameterId id) const { return values_.real(id); }
    std::int32_t integer(ParameterId id) const { return values_.integer(id); }
    bool on(ParameterId id) const { return integer(id) != 0; }

    /// A percentage as a fraction, in single precision: 100 is exactly 1.
    float fraction(ParameterId id) const { return static_cast<float>(real(id) * kPercent); }

private:
    ParameterValues values_;
};

}  // namespace ruvex
