// The titles of statics in dialog templates that describe the host's own controls.

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "sdk/com/export.h"

/// A title is a list of fields separated by semicolons. The first is the label (it may be empty);
/// the others are "name=value" in any order:
/// "Seed;class=dsnewnumberctrl;min=0;max=10000;decimals=0" or ";class=dsnewcolorchipctrl;auto=1".
/// Unknown fields are ignored; a number that can't be read leaves the control without that limit.
struct DSControlTitle {
    enum class Class { Number, ColourChip };

    std::string label;
    Class kind = Class::Number;
    std::optional<double> low{};
    std::optional<double> high{};
    std::optional<int> decimals{};
    bool automatic = false;  ///< auto=1

    /// No value for a title without a known class: the static is an ordinary text.
    DSSDK_API static std::optional<DSControlTitle> parse(std::wstring_view title);
};
