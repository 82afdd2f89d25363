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

/// The unit of a value. Pixels are those of the project frame, so that a value keeps its look at
/// any render size; WorkPixels are those of the picture at the size being worked on.
enum class Unit { None, Percent, Pixels, WorkPixels, PixelsPerSecond, Degrees, Seconds, Frames };

/// The property page where the user finds a parameter. The channel masks are on none of ours: the
/// host shows them itself.
enum class ParameterPage { Main, Guns, Breakup1, Breakup2, Shash, Effects, Cropping, Help, Host };

/// Both ends belong to the range; `high` is infinite where only the low end counts.
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

/// One parameter. Rows and the texts that they point at are constants.
struct ParameterRow {
    ParameterId id;
    ParameterKind kind;
    ParameterPage page;
    GUID identifier;
    /// The name on the pages, and the name that a user types.
    std::string_view label;
    /// The text of the host's name string; differs from the label for the channel masks only.
    std::string_view name;
    /// One sentence, shown as the tool-tip and given to the host as the description.
    std::string_view hint;
    int nameString;
    int hintString;
    /// Whole for every kind but Real.
    double defaultValue;
    /// The range of the page's number control; none for combos, check boxes and the masks.
    std::optional<Range> controlRange;
    /// The range that a page gives its control once it has initialised, where that is wider.
    std::optional<Range> widerRange;
    /// The range that the render clamps the value to; none where it uses any value.
    std::optional<Range> clamp;
    Unit unit;
    /// The labels of an enumeration, from value 0 up; empty for the other kinds.
    std::span<const Choice> choices;
    /// False for what is stored and shown, but never read when a frame is made.
    bool rendered;
    /// The decimals that a number control shows; none: the control's own default.
    std::optional<int> decimals;

    /// The default of a parameter that is stored as an integer.
    constexpr int defaultInt() const { return static_cast<int>(defaultValue); }
    /// The widest range that the user can enter; none where any number of the kind will do.
    constexpr std::optional<Range> enteredRange() const {
        return widerRange ? widerRange : controlRange;
    }
};

}  // namespace ruvex
