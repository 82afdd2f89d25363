#include "effect/frame_parameters.h"

namespace ruvex {

FrameParameters::FrameParameters(const ParameterReader& reader, double seconds) : reader_(reader) {
    for (const ParameterRow& row : parameterTable()) {
        if (!isReal(row.kind)) continue;
        reals_[static_cast<std::size_t>(row.id)] = reader.real(row.id, seconds);
    }
}

}  // namespace ruvex
