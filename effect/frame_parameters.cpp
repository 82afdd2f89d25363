#include "effect/frame_parameters.h"

namespace ruvex {

FrameParameters::FrameParameters(const ParameterReader& reader, double time) {
    for (const ParameterRow& row : parameterTable()) {
        if (isReal(row.kind)) {
            values_.real(row.id) = reader.clampedReal(row.id, time);
        } else {
            values_.integer(row.id) = reader.integer(row.id);
        }
    }
}

}  // namespace ruvex
