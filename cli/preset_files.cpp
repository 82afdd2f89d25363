#include "cli/preset_files.h"

#include <span>
#include <string>

#include "cli/parameter_choice.h"
#include "cli/parameter_file.h"
#include "media/media_error.h"
#include "media/partial_file.h"
#include "parameters/presets.h"

namespace ruvex::cli {

void writePresetFiles(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw media::MediaError(media::writeFailure(folder, error.value()));
    for (int preset = 0; preset < kPresetCount; ++preset) {
        const std::string name(presetNames()[static_cast<std::size_t>(preset)]);
        const std::string text = parameterFileText(presetChanges(preset));
        media::writeWhole(folder / (name + ".json"), std::as_bytes(std::span(text)));
    }
}

}  // namespace ruvex::cli
