#include "looks/presets.h"

#include <optional>

#include "parameters/presets.h"

namespace ruvex::looks {

std::vector<ParameterChange> presetChanges(int preset) {
    std::vector<ParameterChange> changes;
    for (const PresetRow& line : presetTable()) {
        if (const std::optional<double> value = line.value(preset)) {
            changes.emplace_back(Setting{line.id, *value});
        }
    }
    return changes;
}

Look presetLook(int preset) {
    const auto index = static_cast<std::size_t>(preset);
    return {.name = std::string(presetNames()[index]),
            .description = std::string(presetDescriptions()[index]),
            .changes = presetChanges(preset)};
}

}  // namespace ruvex::looks
