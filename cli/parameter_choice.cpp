#include "cli/parameter_choice.h"

#include <algorithm>
#include <span>

#include "cli/messages.h"
#include "cli/parameter_file.h"
#include "cli/parameter_option.h"
#include "cli/usage_error.h"
#include "media/partial_file.h"
#include "parameters/presets.h"

namespace ruvex::cli {
namespace {

void append(std::vector<ParameterChange>& changes, const std::vector<ParameterChange>& more) {
    changes.insert(changes.end(), more.begin(), more.end());
}

/// The changes of --set and --key.
std::vector<ParameterChange> readSingle(const ParameterOptions& options,
                                        std::vector<std::string>& warnings) {
    std::vector<ParameterChange> changes;
    for (const std::string& text : options.settings) {
        changes.emplace_back(parseSetting(text, warnings));
    }
    for (const std::string& text : options.keys) {
        Animation animation = parseAnimation(text, warnings);
        const auto same = [&](const auto& change) { return &rowOf(change) == animation.row; };
        if (std::ranges::any_of(changes, same)) {
            throw UsageError("--key: " + inQuotes(animation.row->label) +
                             " is given twice. Put all its keys into one --key.");
        }
        changes.emplace_back(std::move(animation));
    }
    return changes;
}

/// Whether the text of --preset, which is no preset's name, is meant as a file's.
bool namesFile(const std::filesystem::path& text) {
    return text.has_parent_path() || text.extension() == ".json" || std::filesystem::exists(text);
}

std::vector<ParameterChange> readPreset(const std::string& text,
                                        std::vector<std::string>& warnings) {
    if (const std::optional<int> preset = findPreset(text)) {
        return presetChanges(*preset);
    }
    if (namesFile(text)) {
        return readParameterFile(text, warnings);
    }
    std::string all;
    for (const std::string_view known : presetNames()) {
        all += (all.empty() ? "" : ", ") + std::string(known);
    }
    throw UsageError("--preset: there is no preset " + inQuotes(text) +
                     ", and no file of that name. " + "There are " + all + ".");
}

/// So that a slip of the pen never costs a clip.
void checkSaveName(const std::filesystem::path& file) {
    if (!file.empty() && file.extension() != ".json") {
        throw UsageError("--save-params: " + file.string() +
                         " is not the name of a parameter file. Use one that ends in .json.");
    }
}

void apply(runtime::EffectSession& session, const Setting& setting) {
    session.setValue(setting.row->identifier, setting.value);
}

void apply(runtime::EffectSession& session, const Animation& animation) {
    std::vector<DSKey> keys;
    for (const Key& key : animation.keys) {
        keys.push_back({key.seconds, key.value});
    }
    session.setKeys(animation.row->identifier, keys);
}

ParameterChange parameterOf(const runtime::EffectSession& session, const ParameterRow& row) {
    const std::vector<DSKey> keys = session.keys(row.identifier);
    if (keys.empty()) {
        return Setting{&row, session.value(row.identifier)};
    }
    Animation animation{&row, {}};
    for (const DSKey& key : keys) {
        animation.keys.push_back({key.time, key.value});
    }
    return animation;
}

}  // namespace

std::vector<ParameterChange> presetChanges(int preset) {
    std::vector<ParameterChange> changes;
    for (const PresetRow& line : presetTable()) {
        if (const std::optional<double> value = line.value(preset)) {
            changes.emplace_back(Setting{&row(line.id), *value});
        }
    }
    return changes;
}

ParameterChoice readParameters(const ParameterOptions& options,
                               std::vector<std::string>& warnings) {
    ParameterChoice choice;
    checkSaveName(options.saveParams);
    if (!options.preset.empty()) {
        append(choice.changes, readPreset(options.preset, warnings));
    }
    if (!options.params.empty()) {
        append(choice.changes, readParameterFile(options.params, warnings));
    }
    append(choice.changes, readSingle(options, warnings));
    choice.saveTo = options.saveParams;
    return choice;
}

void setParameters(runtime::EffectSession& session, const ParameterChoice& choice) {
    for (const ParameterChange& change : choice.changes) {
        std::visit([&](const auto& either) { apply(session, either); }, change);
    }
    if (!choice.saveTo.empty()) {
        const std::string text = parameterFileText(parametersOf(session));
        media::writeWhole(choice.saveTo, std::as_bytes(std::span(text)));
    }
}

std::vector<ParameterChange> parametersOf(const runtime::EffectSession& session) {
    std::vector<ParameterChange> all;
    for (const ParameterRow& row : parameterTable()) {
        all.push_back(parameterOf(session, row));
    }
    return all;
}

}  // namespace ruvex::cli
