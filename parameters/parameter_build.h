// Helpers that the table's rows are written with. For parameter_rows.h alone.

#pragma once

#include <limits>

#include "parameters/parameter_row.h"

namespace ruvex::build {

using Id = ParameterId;
using Page = ParameterPage;

/// The identifiers of the effect's own parameters differ in two digits, the last of the first
/// eight.
constexpr GUID own(unsigned lastTwoDigits) {
    GUID guid = guidFromText("A41E7F00-37AB-48B5-99C9-C4B83402C0FC");
    guid.Data1 |= lastTwoDigits;
    return guid;
}

/// The crop is code shared with other effects; its identifiers are another block.
constexpr GUID crop(unsigned lastTwoDigits) {
    GUID guid = guidFromText("F2A92C00-2302-11D3-AB91-0000E8D8077F");
    guid.Data1 |= lastTwoDigits;
    return guid;
}

/// The range of a number control, and the clamp of the render.
struct Numbers {
    Unit unit;
    Range control;
    std::optional<Range> wider{};
    std::optional<Range> clamp{};

    /// The render clamps the value to the control's range.
    constexpr Numbers clamped() const { return {unit, control, wider, control}; }
    /// The render clamps the value to the low end of the control's range alone.
    constexpr Numbers clampedBelow() const {
        return {unit, control, wider, Range{control.low, std::numeric_limits<double>::infinity()}};
    }
    constexpr Numbers widenedTo(double low, double high) const {
        return {unit, control, Range{low, high}, clamp};
    }
};

constexpr Numbers numbers(double low, double high, Unit unit = Unit::None) {
    return {unit, {low, high}};
}
constexpr Numbers percent(double low, double high) {
    return numbers(low, high, Unit::Percent);
}
constexpr Numbers pixels(double low, double high) {
    return numbers(low, high, Unit::Pixels);
}

/// A row with the fields that all kinds have. The hint's string number is the name's plus 1.
constexpr ParameterRow common(Page page, Id id, const GUID& identifier, std::string_view label,
                              double defaultValue, int nameString, std::string_view hint) {
    ParameterRow row{};
    row.page = page;
    row.id = id;
    row.identifier = identifier;
    row.label = label;
    row.name = label;
    row.hint = hint;
    row.nameString = nameString;
    row.hintString = nameString + 1;
    row.defaultValue = defaultValue;
    row.rendered = true;
    return row;
}

constexpr ParameterRow withNumbers(ParameterRow row, const Numbers& numbers) {
    row.unit = numbers.unit;
    row.controlRange = numbers.control;
    row.widerRange = numbers.wider;
    row.clamp = numbers.clamp;
    return row;
}

/// A real, which can be animated.
constexpr ParameterRow real(Page page, Id id, const GUID& identifier, std::string_view label,
                            double defaultValue, const Numbers& numbers, int nameString,
                            std::string_view hint) {
    ParameterRow row =
        withNumbers(common(page, id, identifier, label, defaultValue, nameString, hint), numbers);
    row.kind = ParameterKind::Real;
    return row;
}

/// A whole number, shown without decimals.
constexpr ParameterRow integer(Page page, Id id, const GUID& identifier, std::string_view label,
                               int defaultValue, const Numbers& numbers, int nameString,
                               std::string_view hint) {
    ParameterRow row =
        withNumbers(common(page, id, identifier, label, defaultValue, nameString, hint), numbers);
    row.kind = ParameterKind::Int;
    row.decimals = 0;
    return row;
}

/// One of a list of labels.
constexpr ParameterRow choice(Page page, Id id, const GUID& identifier, std::string_view label,
                              int defaultValue, std::span<const Choice> choices, int nameString,
                              std::string_view hint) {
    ParameterRow row = common(page, id, identifier, label, defaultValue, nameString, hint);
    row.kind = ParameterKind::Enum;
    row.choices = choices;
    return row;
}

/// A check box, off by default.
constexpr ParameterRow checkBox(Page page, Id id, const GUID& identifier, std::string_view label,
                                int nameString, std::string_view hint) {
    ParameterRow row = common(page, id, identifier, label, 0, nameString, hint);
    row.kind = ParameterKind::Bool;
    return row;
}

/// Marks a row that is stored and shown, but never read by the render.
constexpr ParameterRow unread(ParameterRow row) {
    row.rendered = false;
    return row;
}

/// Marks a choice or check box that only the pages use; the host stores it separately.
constexpr ParameterRow forPagesAlone(ParameterRow row) {
    row.kind = row.kind == ParameterKind::Bool ? ParameterKind::UiBool : ParameterKind::UiInt;
    return unread(row);
}

/// A channel mask of the host: 0 keeps the input's channel, any other value takes the effect's. The
/// name and the hint have the same text, in strings of different blocks.
constexpr ParameterRow channelMask(Id id, const GUID& identifier, std::string_view label,
                                   int nameString, int hintString, std::string_view sentence) {
    ParameterRow row = common(Page::Host, id, identifier, label, 1, nameString, sentence);
    row.kind = ParameterKind::Int;
    row.name = sentence;
    row.hintString = hintString;
    row.decimals = 0;
    return row;
}

}  // namespace ruvex::build
