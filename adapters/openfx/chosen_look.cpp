#include "adapters/openfx/chosen_look.h"

#include <algorithm>
#include <cmath>
#include <variant>

#include "adapters/openfx/look_list.h"
#include "adapters/openfx/parameter_list.h"

namespace ruvex::openfx {
namespace {

/// Hosts keep numbers as floats or as text.
bool isDefault(const looks::ParameterChange& change) {
    constexpr double kTolerance = 1e-6;
    const auto* const setting = std::get_if<looks::Setting>(&change);
    if (!setting) return false;
    const double usual = looks::rowOf(change).defaultValue;
    return std::abs(setting->value - usual) <= kTolerance * std::max(1.0, std::abs(usual));
}

}  // namespace

const looks::Look* chosenLook(const ParameterSet& set, double time) {
    const DeclaredParameter& choice = *declaredFor(ParameterId::Presets);
    const HostParameter parameter = set.find(choice.name);
    const int index = parameter.wholeAt(time).value_or(0);
    if (index <= 0) return nullptr;
    if (const auto label = parameter.properties().findString(kOfxParamPropChoiceOption, index)) {
        return findLook(*label);
    }
    // This host does not give the labels back; they are those that it was given.
    const auto known = static_cast<std::size_t>(index);
    return known < choice.choices.size() ? findLook(choice.choices[known]) : nullptr;
}

std::vector<looks::ParameterChange> overLook(const looks::Look& look,
                                             std::vector<looks::ParameterChange> values) {
    std::vector<looks::ParameterChange> changes = look.changes;
    std::erase_if(values, isDefault);
    changes.insert(changes.end(), values.begin(), values.end());
    return looks::lastChanges(changes);
}

}  // namespace ruvex::openfx
