#include "cli/parameter_choice.h"

#include <algorithm>

#include "cli/usage_error.h"
#include "parameters/presets.h"

namespace ruvex::cli {
namespace {

void checkNotBoth(const ParameterChoice& choice) {
    const auto& settings = choice.settings;
    const auto& animations = choice.animations;
    for (std::size_t i = 0; i < animations.size(); ++i) {
        const ParameterRow* row = animations[i].row;
        const auto same = [row](const auto& other) { return other.row == row; };
        const auto rest = animations.begin() + static_cast<std::ptrdiff_t>(i) + 1;
        if (std::any_of(settings.begin(), settings.end(), same) ||
            std::any_of(rest, animations.end(), same)) {
            throw UsageError("--key: '" + std::string(row->label) +
                             "' is given twice. Put all its keys into one --key.");
        }
    }
}

int parsePreset(const std::string& name) {
    if (const std::optional<int> preset = findPreset(name)) {
        return *preset;
    }
    std::string all;
    for (const std::string_view known : presetNames()) {
        all += (all.empty() ? "" : ", ") + std::string(known);
    }
    throw UsageError("--preset: there is no preset '" + name + "'. There are " + all + ".");
}

void setPreset(runtime::EffectSession& session, int preset) {
    for (const PresetRow& line : presetTable()) {
        if (const std::optional<double> value = line.value(preset)) {
            session.setValue(row(line.id).identifier, *value);
        }
    }
}

}  // namespace

ParameterChoice readParameters(const ParameterOptions& options,
                               std::vector<std::string>& warnings) {
    ParameterChoice choice;
    if (!options.preset.empty()) {
        choice.preset = parsePreset(options.preset);
    }
    for (const std::string& text : options.settings) {
        choice.settings.push_back(parseSetting(text, warnings));
    }
    for (const std::string& text : options.keys) {
        choice.animations.push_back(parseAnimation(text, warnings));
    }
    checkNotBoth(choice);
    return choice;
}

void setParameters(runtime::EffectSession& session, const ParameterChoice& choice) {
    if (choice.preset) {
        setPreset(session, *choice.preset);
    }
    for (const Setting& setting : choice.settings) {
        session.setValue(setting.row->identifier, setting.value);
    }
    for (const Animation& animation : choice.animations) {
        std::vector<DSKey> keys;
        for (const Key& key : animation.keys) {
            keys.push_back({key.seconds, key.value});
        }
        session.setKeys(animation.row->identifier, keys);
    }
}

}  // namespace ruvex::cli
