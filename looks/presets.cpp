#include "looks/presets.h"

#include <optional>
#include <span>

#include "files/file_error.h"
#include "files/whole_file.h"
#include "files/words.h"
#include "looks/look_file.h"
#include "parameters/label_match.h"
#include "parameters/presets.h"

namespace ruvex::looks {
namespace {

std::string nameOf(int preset) {
    return std::string(presetNames()[static_cast<std::size_t>(preset)]);
}

/// Whether a name that is no preset's is meant as a file's.
bool namesFile(const std::filesystem::path& name) {
    std::error_code ignored;
    return name.has_parent_path() || name.extension() == ".json" ||
           std::filesystem::exists(name, ignored);
}

std::string allNames() {
    std::string all;
    for (int preset = 0; preset < kPresetCount; ++preset) {
        all.append(all.empty() ? "" : ", ").append(nameOf(preset));
    }
    return all;
}

std::string suggestion(const std::string& name) {
    const std::string_view similar = similarLabel(name, presetNames());
    return similar.empty() ? "" : " Did you mean " + files::inQuotes(similar) + "?";
}

}  // namespace

std::vector<ParameterChange> presetChanges(int preset) {
    std::vector<ParameterChange> changes;
    for (const PresetRow& line : presetTable()) {
        if (const std::optional<double> value = line.value(preset)) {
            changes.emplace_back(Setting{line.id, *value});
        }
    }
    return changes;
}

std::vector<ParameterChange> readLook(const std::string& name, std::vector<std::string>& warnings) {
    if (const std::optional<int> preset = findPreset(name)) return presetChanges(*preset);
    if (namesFile(name)) return readLookFile(name, warnings);
    throw UnknownLook("there is no preset " + files::inQuotes(name) +
                      ", and no file of that name." + suggestion(name) + " The presets are " +
                      allNames() + ".");
}

void writePresetFiles(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw files::FileError(files::writeFailure(folder, error.value()));
    for (int preset = 0; preset < kPresetCount; ++preset) {
        const std::string text = lookFileText(presetChanges(preset));
        files::writeWhole(folder / (nameOf(preset) + ".json"), std::as_bytes(std::span(text)));
    }
}

}  // namespace ruvex::looks
