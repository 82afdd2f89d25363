// Conversion between a parameter's value and text, independent of the locale.

#pragma once

#include <string>
#include <string_view>

#include "parameters/parameter_row.h"

namespace ruvex {

/// The result of parsing. Ok and Warning have a value, a whole number for every kind but Real.
/// Warning and Error have a message for the user with the parameter and its allowed values.
struct ParsedValue {
    enum class Severity { Ok, Warning, Error };

    Severity severity = Severity::Ok;
    double value = 0.0;
    std::string message;

    bool usable() const { return severity != Severity::Error; }
    /// The value of a parameter that is stored as an integer.
    int whole() const { return static_cast<int>(value); }
};

/// Parses a value of `row`'s kind; spaces around it are ignored.
/// - Real: a finite decimal number, with or without exponent. Int: a whole number.
/// - Enumerations: a label, without regard to case and spaces, or its number from 0 up.
/// - Check boxes: on, off, true, false, yes, no, 1, 0, in any case.
/// A number outside the range that the user can enter is an error, or only a warning if the render
/// clamps it.
ParsedValue parseValue(const ParameterRow& row, std::string_view text);

/// The shortest text that parseValue turns into the same value: a label of an enumeration, on or
/// off, or a number. A value without a label is written as a number.
std::string formatValue(const ParameterRow& row, double value);

/// The shortest decimal text that parses to `value`; without an exponent below 1e15.
std::string formatNumber(double value);

/// What the row takes, in words: "0..100 %", "at least 0", "Colour, B & W or Tint", "on or off".
std::string allowedValues(const ParameterRow& row);

/// "0..100", or "at least 0" where the high end is infinite.
std::string formatRange(const Range& range);

}  // namespace ruvex
