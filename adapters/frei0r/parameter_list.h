// The parameters of the frei0r plug-in, in their released order.

#pragma once

#include <span>
#include <string>
#include <variant>

#include "adapters/frei0r/frei0r_api.h"
#include "parameters/parameter_row.h"

namespace ruvex::frei0r {

/// Parameters that are the plug-in's own and no row of the table.
enum class OwnParameter { Look, Fps, EffectAlpha, TimeUnit, LookFile, Override };

/// A value: of a bool (0 or 1) and a double, of a colour, of a string.
using Value = std::variant<double, Colour, std::string>;

struct ListedParameter {
    std::string name;  ///< "master-breakup"; also the name on the hosts' command lines.
    ParameterType type;
    std::string explanation;  ///< One sentence or several, with range and default.
    Value defaultValue;
    /// The row behind it, for a colour that of its red channel; null for the plug-in's own.
    const ParameterRow* row = nullptr;
    OwnParameter own{};  ///< Without a row.
};

/// All parameters. The order is part of the plug-in's interface, since ffmpeg gives values by their
/// position: those that are used most come first, and new ones are only ever appended.
///
/// Reals and integers are doubles from 0 to 1 over the control's range, check boxes and channel
/// masks are bools, colours are colours. Choices are strings, of which each host shows the default
/// and stores the label: a number from 0 to 1 would mean another choice once there is one more.
std::span<const ListedParameter> parameterList();

}  // namespace ruvex::frei0r
