// Reading parameters at a time.

#pragma once

#include "host/base/parameter_values.h"
#include "sdk/properties/property_container.h"

namespace ruvex {

/// One real over time, for readers of many moments in a row. Good as long as the parameters of its
/// object do not change.
class ParameterCurve {
public:
    ParameterCurve(const DSAnimation* animation, double constant)
        : animation_(animation), constant_(constant) {}

    /// The value at `seconds`, as it stands.
    double at(double seconds) const {
        return animation_ ? animation_->valueAt(seconds) : constant_;
    }

    /// Whether the value is `value` at any time, without a key.
    bool alwaysIs(double value) const { return !animation_ && constant_ == value; }

private:
    const DSAnimation* animation_;
    double constant_;
};

/// Reads the parameters of one effect object, which must outlive the reader and must not change
/// meanwhile. Reals are the animated ones; everything else is the same at any time.
class ParameterReader {
public:
    ParameterReader(const CDSPropertyContainer& container, const ParameterValues& values)
        : container_(&container), values_(&values) {}

    /// The real at `seconds`, as it stands.
    double real(ParameterId id, double seconds) const {
        return container_->GetValueDirect(row(id).identifier, values_->real(id), seconds);
    }
    ParameterCurve curve(ParameterId id) const {
        return {container_->FindAnimation(row(id).identifier), values_->real(id)};
    }
    /// The real at `seconds`, held to the range that the render allows.
    double clampedReal(ParameterId id, double seconds) const {
        return renderClamp(id, real(id, seconds));
    }
    std::int32_t integer(ParameterId id) const { return values_->integer(id); }
    bool on(ParameterId id) const { return integer(id) != 0; }

private:
    const CDSPropertyContainer* container_;
    const ParameterValues* values_;
};

}  // namespace ruvex
