// Changes of parameters: values and keys.

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "looks/key_mode.h"
#include "parameters/parameter_table.h"

namespace ruvex::looks {

/// A parameter with one value at all times.
struct Setting {
    ParameterId id{};
    double value = 0.0;

    friend bool operator==(const Setting&, const Setting&) = default;
};

struct Key {
    double seconds = 0.0;
    double value = 0.0;
    KeyMode mode = KeyMode::Linear;  ///< Of the segment that begins here.

    friend bool operator==(const Key&, const Key&) = default;
};

/// A real parameter with keys: at least one, in the order of their times.
struct Animation {
    ParameterId id{};
    std::vector<Key> keys;

    friend bool operator==(const Animation&, const Animation&) = default;
};

/// Replaces whatever value or keys the parameter had before.
using ParameterChange = std::variant<Setting, Animation>;

/// The row of the parameter that is changed.
inline const ParameterRow& rowOf(const ParameterChange& change) {
    return row(std::visit([](const auto& either) { return either.id; }, change));
}

/// The changes that count: the last one of each parameter, in the order of the table.
std::vector<ParameterChange> lastChanges(std::span<const ParameterChange> changes);

/// The message for a name that is not a parameter's, with the most similar label.
std::string noSuchParameter(std::string_view name);

/// The message for a parameter that is stored but never changes the picture.
std::string doesNotRender(const ParameterRow& row);

/// Adds `seconds` to the time of each key. False if the times are then not finite or two are equal.
bool shiftKeys(Animation& animation, double seconds);

/// Sorts the keys by time. Returns the first of two keys at one time, null if there are none.
const Key* sortKeys(Animation& animation);

}  // namespace ruvex::looks
