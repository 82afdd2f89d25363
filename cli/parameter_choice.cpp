#include "cli/parameter_choice.h"

#include <algorithm>

#include "cli/usage_error.h"

namespace ruvex::cli {
namespace {

void checkNotBoth(const ParameterChoice& choice) {
    const auto& [settings, animations] = choice;
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

}  // namespace

ParameterChoice readParameters(const std::vector<std::string>& settings,
                               const std::vector<std::string>& keys,
                               std::vector<std::string>& warnings) {
    ParameterChoice choice;
    for (const std::string& text : settings) {
        choice.settings.push_back(parseSetting(text, warnings));
    }
    for (const std::string& text : keys) {
        choice.animations.push_back(parseAnimation(text, warnings));
    }
    checkNotBoth(choice);
    return choice;
}

void setParameters(runtime::EffectSession& session, const ParameterChoice& choice) {
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
