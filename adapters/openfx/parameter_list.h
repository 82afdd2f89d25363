// The parameters that the plug-in declares, made from the table of parameters.

#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "parameters/parameter_row.h"

namespace ruvex::openfx {

enum class DeclaredKind { Real, Integer, Choice, CheckBox, Colour, Button };

/// What a parameter is for. Row: a row of the table, or the three of a colour. The others are the
/// plug-in's own.
enum class Purpose { Row, Reset, ResultAlpha, FirstFrame, FrameWidth, FrameHeight };

struct DeclaredParameter {
    std::string name;  ///< In scripts and stored projects.
    std::string label;
    std::string hint;
    DeclaredKind kind{};
    ParameterPage page{};  ///< Of its group.
    Purpose purpose = Purpose::Row;
    const ParameterRow* row = nullptr;  ///< Of a colour the red channel's; null without a row.
    /// The first one, and all three from 0 to 1 for a colour; whole but for reals and colours.
    std::array<double, 3> defaults{};
    std::optional<Range> range{};         ///< That can be entered; of numbers alone.
    std::optional<Range> displayRange{};  ///< Of the slider.
    int decimals = 0;                     ///< Of reals.
    std::vector<std::string> choices{};   ///< Their labels are what hosts store.
    bool rendered = true;                 ///< Whether pictures depend on it.
};

/// The pages in the order of their groups.
std::span<const ParameterPage> groupPages();

/// All parameters, page by page.
std::span<const DeclaredParameter> parameterList();

/// The parameter with this name; null if there is none.
const DeclaredParameter* findDeclared(std::string_view name);
/// The plug-in's own parameter for this purpose.
const DeclaredParameter& ownParameter(Purpose purpose);
/// The declared parameter to which a row belongs; null for a row that is not declared.
const DeclaredParameter* declaredFor(ParameterId id);

/// The row of a channel (0 red, 1 green, 2 blue) of the colour that begins with `red`.
const ParameterRow& channelRow(const ParameterRow& red, int channel);

/// Colours are from 0 to 1 in hosts, and percentages in the table.
inline constexpr double kPercentOfWhite = 100.0;
inline constexpr int kColourChannels = 3;

/// The values of Result Alpha, in the order of adapters::ResultAlpha.
inline constexpr std::array<std::string_view, 3> kResultAlphas = {"Automatic", "Effect", "Opaque"};

}  // namespace ruvex::openfx
