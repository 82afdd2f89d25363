// One row of the table of parameters.

#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "parameters/parameter_id.h"
#include "sdk/com/guid.h"

namespace ruvex {

/// How the host stores a parameter. Only reals (64-bit floats) are animated; all others are signed
/// 32-bit integers. The Ui kinds are shown and stored, but never read by the render.
enum class ParameterKind { Real, Int, Enum, Bool, UiInt, UiBool };

constexpr bool isReal(ParameterKind kind) {
    return kind == ParameterKind::Real;
}
constexpr bool isCheckBox(ParameterKind kind) {
    return kind == ParameterKind::Bool || kind == ParameterKind::UiBool;
}

/// The unit of a value. Pixels are pixels of the project frame, so that a length is the same part
/// of the picture at any render size; WorkPixels are pixels of the picture at the work size.
enum class Unit { None, Percent, Pixels, WorkPixels, PixelsPerSecond, Degrees, Seconds, Frames };

/// The property page of a parameter. Host: the channel masks, which the host shows itself.
enum class ParameterPage { Main, Guns, Breakup1, Breakup2, Shash, Effects, Cropping, Help, Host };

/// A range of values, inclusive. `high` is infinite if there is only a lower limit.
struct Range {
    double low;
    double high;

    constexpr bool contains(double value) const { return value >= low && value <= high; }
    friend constexpr bool operator==(const Range&, const Range&) = default;
};

/// One entry of an enumeration. The stored value is its index in the row's list.
struct Choice {
    int stringId;
    std::string_view label;
};

/// One parameter. Rows and their texts are constants.
struct ParameterRow {
    ParameterId id;
    ParameterKind kind;
    ParameterPage page;
    GUID identifier;
    /// The name on the pages and the command line.
    std::string_view label;
    /// The text of the host's name string; differs from the label for the channel masks only.
    std::string_view name;
    /// One sentence, shown as the tool-tip and given to the host as the description.
    std::string_view hint;
    int nameString;
    int hintString;
    /// A whole number for every kind but Real.
    double defaultValue;
    /// The range of the page's number control; no value for combo boxes, check boxes and masks.
    std::optional<Range> controlRange;
    /// A wider range that the page sets on its control after initialisation, if any.
    std::optional<Range> widerRange;
    /// The range to which the render clamps the value; no value if it does not clamp.
    std::optional<Range> clamp;
    Unit unit;
    /// The labels of an enumeration, from value 0 up; empty for the other kinds.
    std::span<const Choice> choices;
    /// False for a parameter that is stored and shown, but not used in a render.
    bool rendered;
    /// The number of decimals that a number control shows; no value: the control's default.
    std::optional<int> decimals;

    /// The default of a parameter that is stored as an integer.
    constexpr int defaultInt() const { return static_cast<int>(defaultValue); }
    /// The widest range that the user can enter; no value if there is no limit.
    constexpr std::optional<Range> enteredRange() const {
        return widerRange ? widerRange : controlRange;
    }
};

}  // namespace ruvex
