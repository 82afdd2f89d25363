// A parameter's value as text, and back. Never depends on the machine's locale.

#pragma once

#include <string>
#include <string_view>

#include "parameters/parameter_row.h"

namespace ruvex {

/// The result of reading a text. Ok and Warning carry the value, which is whole for every kind but
/// Real; Warning and Error carry a sentence for the user that names the parameter and what it
/// takes.
struct ParsedValue {
    enum class Severity { Ok, Warning, Error };

    Severity severity = Severity::Ok;
    double value = 0.0;
    std::string message;

    bool usable() const { return severity != Severity::Error; }
    /// The value of a parameter that is stored as an integer.
    int whole() const { return static_cast<int>(value); }
};

/// Reads a value of `row`'s kind; spaces around it are let go.
/// - Real: a finite decimal number, with or without exponent. Int: a whole number.
/// - Enumerations: a label, without regard to case and spaces, or its number from 0 up.
/// - Check boxes: on, off, true, false, yes, no, 1, 0, in any case.
/// A number outside the range that the user can enter is an error; only a warning where the render
/// clamps it.
ParsedValue parseValue(const ParameterRow& row, std::string_view text);

/// The shortest text from which parseValue reads the same value: the label of an enumeration, on or
/// off, or a number. A value that the row has no label for is given as a number.
std::string formatValue(const ParameterRow& row, double value);

/// The shortest decimal text that reads back as `value`, without an exponent in the common range.
std::string formatNumber(double value);

/// What the row takes, in words: "0..100 %", "at least 0", "Colour, B & W or Tint", "on or off".
std::string allowedValues(const ParameterRow& row);

/// "0..100", or "at least 0" where the high end is infinite.
std::string formatRange(const Range& range);

}  // namespace ruvex
