#include "adapters/common/parameter_name.h"

#include <algorithm>

#include "files/words.h"
#include "parameters/parameter_table.h"

namespace ruvex::adapters {
namespace {

constexpr ParameterId kColours[] = {ParameterId::TintColourR, ParameterId::CropColourR};
/// Red, green, blue; an alpha that follows belongs to the colour too.
constexpr int kChannels = 4;

}  // namespace

std::string hyphenatedName(std::string_view label) {
    std::string name = files::lowerCase(std::string(label));
    std::ranges::replace(name, ' ', '-');
    return name;
}

std::string_view colourLabel(const ParameterRow& red) {
    return red.label.substr(0, red.label.rfind(' '));
}

bool beginsColour(const ParameterRow& row) {
    return std::ranges::find(kColours, row.id) != std::end(kColours);
}

bool isColourChannel(const ParameterRow& row) {
    return std::ranges::any_of(kColours, [&](ParameterId red) {
        const int distance = static_cast<int>(row.id) - static_cast<int>(red);
        return distance >= 0 && distance < kChannels &&
               row.label.starts_with(colourLabel(ruvex::row(red)));
    });
}

}  // namespace ruvex::adapters
