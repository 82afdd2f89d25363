#include "cli/parameter_choice.h"

#include <algorithm>
#include <set>
#include <utility>

#include "cli/option_text.h"
#include "cli/typed_parameter.h"
#include "cli/usage_error.h"
#include "files/words.h"
#include "looks/look_file.h"
#include "looks/look_library.h"
#include "looks/parameter_needs.h"

namespace ruvex::cli {
namespace {

using looks::ParameterChange;

void append(std::vector<ParameterChange>& changes, const std::vector<ParameterChange>& more) {
    changes.insert(changes.end(), more.begin(), more.end());
}

/// The changes of --key.
std::vector<ParameterChange> readKeys(const ParameterOptions& options,
                                      std::vector<std::string>& warnings) {
    std::vector<ParameterChange> changes;
    for (const std::string& text : options.keys) {
        looks::Animation animation = parseAnimation(text, warnings);
        const auto same = [&](const auto& change) { return rowOf(change).id == animation.id; };
        if (std::ranges::any_of(changes, same)) {
            throw UsageError("--key: " + files::inQuotes(row(animation.id).label) +
                             " is given twice. Put all its keys into one --key.");
        }
        changes.emplace_back(std::move(animation));
    }
    return changes;
}

/// The changes of --set and --key. Keys replace a value of the same parameter.
std::vector<ParameterChange> readSingle(const ParameterOptions& options,
                                        std::vector<std::string>& warnings) {
    std::vector<ParameterChange> changes;
    for (const std::string& text : options.settings) {
        changes.emplace_back(parseSetting(text, warnings));
    }
    append(changes, readKeys(options, warnings));
    return changes;
}

/// Shifts the keys of the look files by --key-offset.
void shiftLook(const std::string& offset, std::vector<ParameterChange>& changes,
               std::vector<std::string>& warnings) {
    const double seconds = parseSeconds("--key-offset", offset);
    bool anyKeys = false;
    for (ParameterChange& change : changes) {
        auto* animation = std::get_if<looks::Animation>(&change);
        if (animation == nullptr) continue;
        anyKeys = true;
        if (!shiftKeys(*animation, seconds)) {
            throw UsageError("--key-offset: " + offset + " s is too far for the keys of " +
                             files::inQuotes(row(animation->id).label) +
                             ": their times would be too large or the same.");
        }
    }
    if (!anyKeys) {
        warnings.emplace_back("--key-offset is ignored: --preset and --params have no keys.");
    }
}

looks::LibraryLook readPreset(const std::string& name) {
    try {
        return looks::readLook(name);
    } catch (const looks::UnknownLook& error) {
        throw UsageError(std::string("--preset: ") + error.what());
    }
}

/// Applies a look over another one.
void layOver(looks::Look& look, const looks::Look& over) {
    append(look.changes, over.changes);
    if (over.projectSize) look.projectSize = over.projectSize;
}

}  // namespace

looks::Look readParameters(const ParameterOptions& options, std::vector<std::string>& warnings) {
    checkJsonName("--save-params", options.saveParams, "look");
    looks::Look look;
    if (!options.preset.empty()) {
        const looks::LibraryLook preset = readPreset(options.preset);
        warnings.insert(warnings.end(), preset.warnings.begin(), preset.warnings.end());
        layOver(look, preset.look);
    }
    if (!options.params.empty()) layOver(look, looks::readLookFile(options.params, warnings));
    if (!options.keyOffset.empty()) shiftLook(options.keyOffset, look.changes, warnings);
    append(look.changes, readSingle(options, warnings));
    return look;
}

std::vector<std::string> effectWarnings(const ParameterOptions& options,
                                        const std::vector<ParameterChange>& changes) {
    // Each --set and --key has made one change, after those of the look.
    const std::size_t typed = options.settings.size() + options.keys.size();
    std::set<ParameterId> asked;
    for (std::size_t i = 0; i < changes.size(); ++i) {
        const ParameterId id = rowOf(changes[i]).id;
        const bool keyed = std::holds_alternative<looks::Animation>(changes[i]);
        if (keyed || i + typed >= changes.size()) {
            asked.insert(id);
        } else {
            asked.erase(id);
        }
    }
    const looks::ValueRanges values(changes);
    std::vector<std::string> warnings;
    for (const ParameterId id : asked) {
        std::string why = looks::whyWithoutEffect(id, values);
        if (!why.empty()) warnings.push_back(std::move(why));
    }
    return warnings;
}

std::vector<std::filesystem::path> lookFilesOf(const ParameterOptions& options) {
    std::vector<std::filesystem::path> files;
    if (!options.preset.empty()) {
        const std::filesystem::path file = looks::fileOfLook(options.preset);
        if (!file.empty()) files.push_back(file);
    }
    if (!options.params.empty()) files.emplace_back(options.params);
    return files;
}

}  // namespace ruvex::cli
