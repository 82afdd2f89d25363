#include "adapters/openfx/control_state.h"

#include <algorithm>
#include <array>

#include "adapters/openfx/parameter_names.h"
#include "parameters/control_rules.h"
#include "parameters/parameter_table.h"

namespace ruvex::openfx {
namespace {

void setState(const Properties& properties, const char* name, bool state) {
    if (properties.getInt(name, -1) != (state ? 1 : 0)) properties.setInt(name, state ? 1 : 0);
}

/// The values by which the rules decide; other parameters have their defaults.
std::array<double, kParameterCount> decidingValues(const Instance& instance, double time) {
    std::array<double, kParameterCount> values{};
    for (const ParameterRow& row : parameterTable()) {
        values[static_cast<std::size_t>(row.id)] = row.defaultValue;
    }
    const ParameterValues ofInstance = instance.values();
    for (const ControlRule& rule : controlRules()) {
        values[static_cast<std::size_t>(rule.decidedBy)] = ofInstance.valueAt(rule.decidedBy, time);
    }
    return values;
}

/// Whether a rule has the parameter among its controls.
bool isRuled(const DeclaredParameter& parameter, ControlState state) {
    return parameter.row && std::ranges::any_of(controlRules(), [&](const ControlRule& rule) {
               return rule.state == state &&
                      std::ranges::find(rule.parameters, parameter.row->id) !=
                          rule.parameters.end();
           });
}

}  // namespace

void updateControls(const Instance& instance, double time) {
    const auto values = decidingValues(instance, time);
    const ParameterSet set = instance.parameters();
    for (const DeclaredParameter& parameter : parameterList()) {
        const bool shown = isRuled(parameter, ControlState::Show);
        const bool enabled = isRuled(parameter, ControlState::Enable);
        if (!shown && !enabled) continue;
        const Properties properties = set.find(parameter.name).properties();
        const ParameterId id = parameter.row->id;
        if (shown) setState(properties, kOfxParamPropSecret, !isControlShown(id, values));
        if (enabled) setState(properties, kOfxParamPropEnabled, isControlEnabled(id, values));
    }
}

bool decidesControls(const std::string& name) {
    return std::ranges::any_of(controlRules(), [&](const ControlRule& rule) {
        return scriptName(row(rule.decidedBy)) == name;
    });
}

}  // namespace ruvex::openfx
