// What a command line asks of single parameters.

#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "parameters/parameter_table.h"

namespace ruvex::cli {

/// A parameter at one value at all times.
struct Setting {
    const ParameterRow* row = nullptr;
    double value = 0.0;
};

struct Key {
    double seconds = 0.0;
    double value = 0.0;
};

/// A real parameter that changes; keys in the order of their times, at least one.
struct Animation {
    const ParameterRow* row = nullptr;
    std::vector<Key> keys;
};

/// Either ends what the parameter was before.
using ParameterChange = std::variant<Setting, Animation>;

inline const ParameterRow& rowOf(const ParameterChange& change) {
    return *std::visit([](const auto& either) { return either.row; }, change);
}

/// The sentence on a name that is no parameter's, with the nearest that is.
std::string noSuchParameter(std::string_view name);

/// The sentence on a change that no picture will show.
std::string doesNotRender(const ParameterRow& row);

/// Puts the keys in the order of their times. The first of two keys at one time; null where there
/// are none such.
const Key* sortKeys(Animation& animation);

}  // namespace ruvex::cli
