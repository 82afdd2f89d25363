// The looks that come with the effect.

#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "parameters/parameter_id.h"

namespace ruvex {

inline constexpr int kPresetCount = 8;

/// The values of one parameter in the presets, in the order of presetNames. A preset without a
/// value does not change the parameter.
struct PresetRow {
    ParameterId id;
    double values[kPresetCount];

    std::optional<double> value(int preset) const;
};

/// The names of the presets, in the order of the user's list.
std::span<const std::string_view> presetNames();

/// What each preset shows, in a few words, in the same order.
std::span<const std::string_view> presetDescriptions();

/// All rows, in the order in which applying a preset sets the parameters.
std::span<const PresetRow> presetTable();

/// The index of the preset with this name, ignoring case and spaces; no value if there is none.
std::optional<int> findPreset(std::string_view name);

}  // namespace ruvex
