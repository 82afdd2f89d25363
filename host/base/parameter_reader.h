// Reads the parameters of an effect at any time.

#pragma once

#include "host/base/parameter_values.h"
#include "imaging/interruption.h"
#include "sdk/properties/property_container.h"

namespace ruvex {

/// Reals are read in two ways, here and in everything built on it. The plain names (`real`, `at`)
/// give the value that the render uses, clamped as the parameter's row says. `raw` in a name gives
/// the stored or interpolated value without a clamp. Raw values are used by:
/// - walks over earlier frames (signal_level.cpp, signal_walks.cpp): pictures depend on the clamps
///   not being applied to the values at earlier times;
/// - integrals over time and the player: speeds have no clamp, so the raw value is the same and is
///   read faster;
/// - the crop (ruvex_execute.cpp): its edges have no clamp, and its colour is clamped as a
/// fraction.

/// A real over time, for reading its values at many times. Valid until the parameters of its object
/// change.
class ParameterCurve {
public:
    /// Without an `animation` (null) the value is `constant`, which is ignored otherwise.
    ParameterCurve(ParameterId id, const DSAnimation* animation, double constant,
                   InterruptionRecord* interrupt)
        : id_(id), animation_(animation), constant_(constant), interrupt_(interrupt) {}

    double rawAt(double seconds) const {
        return animation_ ? animation_->valueAt(seconds) : constant_;
    }
    double at(double seconds) const { return renderClamp(id_, rawAt(seconds)); }

    /// Whether the parameter is not animated and its raw value is `value`.
    bool alwaysIs(double value) const { return !animation_ && constant_ == value; }

    /// That of the curve's reader.
    InterruptionRecord* interruption() const { return interrupt_; }

private:
    ParameterId id_;
    const DSAnimation* animation_;
    double constant_;
    InterruptionRecord* interrupt_;
};

/// Reads the parameters of one effect object, which must outlive the reader and must not change in
/// the meantime. Only reals can be animated; all other kinds have the same value at any time.
class ParameterReader {
public:
    /// `interrupt` (may be null) belongs to the frame that the parameters are read for.
    ParameterReader(const CDSPropertyContainer& container, const ParameterValues& values,
                    InterruptionRecord* interrupt = nullptr)
        : container_(&container), values_(&values), interrupt_(interrupt) {}

    double rawReal(ParameterId id, double seconds) const {
        return container_->GetValueDirect(row(id).identifier, values_->rawReal(id), seconds);
    }
    double real(ParameterId id, double seconds) const {
        return renderClamp(id, rawReal(id, seconds));
    }
    ParameterCurve curve(ParameterId id) const {
        return {id, container_->FindAnimation(row(id).identifier), values_->rawReal(id),
                interrupt_};
    }
    std::int32_t integer(ParameterId id) const { return values_->integer(id); }
    bool on(ParameterId id) const { return integer(id) != 0; }

    /// What a long walk over time has to check; null for values without a frame.
    InterruptionRecord* interruption() const { return interrupt_; }

private:
    const CDSPropertyContainer* container_;
    const ParameterValues* values_;
    InterruptionRecord* interrupt_;
};

}  // namespace ruvex
