// The looks that come with the effect.

#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "parameters/parameter_id.h"

namespace ruvex {

inline constexpr int kPresetCount = 8;

/// One parameter's values in the presets, in the presets' order. A preset that has none for it
/// leaves the parameter as it is.
struct PresetRow {
    ParameterId id;
    double values[kPresetCount];

    std::optional<double> value(int preset) const;
};

/// The names, in the order of the list that the user chooses from.
std::span<const std::string_view> presetNames();

/// All rows, in the order in which a preset is written.
std::span<const PresetRow> presetTable();

/// The preset with that name, without regard to case and spaces; none where there is none.
std::optional<int> findPreset(std::string_view name);

}  // namespace ruvex
