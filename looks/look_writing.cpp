#include "looks/look_writing.h"

#include <algorithm>
#include <string>

#include "files/file_error.h"
#include "files/whole_file.h"
#include "looks/look_file.h"
#include "looks/session_look.h"
#include "looks/state_file.h"

namespace ruvex::looks {

namespace fs = std::filesystem;

void saveLook(const runtime::EffectSession& session, const std::filesystem::path& file,
              std::optional<ProjectSize> projectSize) {
    const std::string text =
        lookFileText({.projectSize = projectSize, .changes = changesOf(session)});
    files::writeWhole(file, std::as_bytes(std::span(text)));
}

void writeLookFiles(std::span<const LibraryLook> looks, const fs::path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error) throw files::FileError(files::writeFailure(folder, error.value()));
    for (const LibraryLook& entry : looks) {
        const std::string text = lookFileText(entry.look);
        std::string name = entry.look.name;
        std::ranges::replace(name, '/', '-');
        files::writeWhole(folder / (name + ".json"), std::as_bytes(std::span(text)));
    }
}

void saveState(const runtime::EffectSession& session, const std::filesystem::path& file) {
    const auto scope = session.enter();
    const std::string text = stateFileText(runtime::readStates(session.properties()));
    files::writeWhole(file, std::as_bytes(std::span(text)));
}

}  // namespace ruvex::looks
