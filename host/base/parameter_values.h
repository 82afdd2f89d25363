// The plain values of all parameters of one effect object.

#pragma once

#include <array>
#include <cstdint>

#include "parameters/parameter_table.h"

namespace ruvex {

/// One member for each parameter: a double for a real, a 32-bit integer for every other kind. The
/// constructor sets the defaults.
class ParameterValues {
public:
    ParameterValues() { setDefaults(); }

    void setDefaults();

    /// The stored value of a real, without the render's clamp.
    double& rawReal(ParameterId id) { return values_[index(id)].real; }
    double rawReal(ParameterId id) const { return values_[index(id)].real; }
    std::int32_t& integer(ParameterId id) { return values_[index(id)].integer; }
    std::int32_t integer(ParameterId id) const { return values_[index(id)].integer; }

    /// The address of a parameter's member, for the property map.
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
