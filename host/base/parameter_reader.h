// Reading parameters at a time.

#pragma once

#include "host/base/parameter_values.h"
#include "sdk/properties/property_container.h"

namespace ruvex {

/// Reals are read in two ways, here and in everything built on it. The plain names (`real`, `at`)
/// give the value that the render uses, clamped as the parameter's row says. `raw` in a name gives
/// the value as it is stored or interpolated, whatever its size, and these readers want that:
/// - what looks back over earlier frames (signal_level.cpp, signal_walks.cpp): the clamps apply to
///   the frame itself, and pictures depend on earlier values being free of them;
/// - integrals over time and the player: speeds have no clamp, so that raw is the same and cheaper;
/// - the crop (ruvex_execute.cpp): its edges have no clamp, and its colour is clamped as a
/// fraction.

/// One real over time, for readers of many moments in a row. Good as long as the parameters of its
/// object do not change.
class ParameterCurve {
public:
    /// `animation` may be null: the value is `constant` then, which is ignored otherwise.
    ParameterCurve(ParameterId id, const DSAnimation* animation, double constant)
        : id_(id), animation_(animation), constant_(constant) {}

    double rawAt(double seconds) const {
        return animation_ ? animation_->valueAt(seconds) : constant_;
    }
    double at(double seconds) const { return renderClamp(id_, rawAt(seconds)); }

    /// Whether the raw value is `value` at any time, without a key.
    bool alwaysIs(double value) const { return !animation_ && constant_ == value; }

private:
    ParameterId id_;
    const DSAnimation* animation_;
    double constant_;
};

/// Reads the parameters of one effect object, which must outlive the reader and must not change
/// meanwhile. Reals are the animated ones; everything else is the same at any time.
class ParameterReader {
public:
    ParameterReader(const CDSPropertyContainer& container, const ParameterValues& values)
        : container_(&container), values_(&values) {}

    double rawReal(ParameterId id, double seconds) const {
        return container_->GetValueDirect(row(id).identifier, values_->rawReal(id), seconds);
    }
    double real(ParameterId id, double seconds) const {
        return renderClamp(id, rawReal(id, seconds));
    }
    ParameterCurve curve(ParameterId id) const {
        return {id, container_->FindAnimation(row(id).identifier), values_->rawReal(id)};
    }
    std::int32_t integer(ParameterId id) const { return values_->integer(id); }
    bool on(ParameterId id) const { return integer(id) != 0; }

private:
    const CDSPropertyContainer* container_;
    const ParameterValues* values_;
};

}  // namespace ruvex
