// All parameters as they are at the time of one frame.

#pragma once

#include "effect/percent.h"
#include "host/base/parameter_reader.h"

namespace ruvex {

class FrameParameters {
public:
    /// Reads every parameter at `time`, with the clamps of the render.
    FrameParameters(const ParameterReader& reader, double time);

    double real(ParameterId id) const { return values_.real(id); }
    std::int32_t integer(ParameterId id) const { return values_.integer(id); }
    bool on(ParameterId id) const { return integer(id) != 0; }

    /// A percentage as a fraction, in single precision: 100 is exactly 1.
    float fraction(ParameterId id) const { return fractionOf(real(id)); }

private:
    ParameterValues values_;
};

}  // namespace ruvex
