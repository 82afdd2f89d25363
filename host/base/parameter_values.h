// The plain values of all parameters of one effect object.

#pragma once

#include <array>
#include <cstdint>

#include "parameters/parameter_table.h"

namespace ruvex {

/// One member a parameter: a double for each real, a 32-bit integer for each other kind. They hold
/// their defaults from the start.
class ParameterValues {
public:
    ParameterValues() { setDefaults(); }

    void setDefaults();

    /// Reals as they are stored, whatever the clamp of the render.
    double& rawReal(ParameterId id) { return values_[index(id)].real; }
    double rawReal(ParameterId id) const { return values_[index(id)].real; }
    std::int32_t& integer(ParameterId id) { return values_[index(id)].integer; }
    std::int32_t integer(ParameterId id) const { return values_[index(id)].integer; }

    /// Where the host's property map finds the member of a row.
    void* member(ParameterId id);

private:
    struct Value {
        double real;
        std::int32_t integer;
    };
    static std::size_t index(ParameterId id) { return static_cast<std::size_t>(id); }

    std::array<Value, kParameterCount> values_;
};

}  // namespace ruvex
