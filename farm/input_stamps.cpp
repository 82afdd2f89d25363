#include "farm/input_stamps.h"

#include <algorithm>

#include "farm/farm_error.h"
#include "farm/program_identity.h"
#include "files/numbered_path.h"
#include "jobs/files_written.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuseChanged(const fs::path& file) {
    throw FarmError(file.string() +
                    " was changed after the submission. Submit the render of the changed file as a "
                    "new job.");
}

void checkFile(const fs::path& input, const std::optional<files::FileStamp>& submitted) {
    if (!submitted) return;
    const fs::path file = files::NumberedPath(input).plain();
    const auto now = files::stampOf(file);
    if (!now) {
        throw FarmError(hostName() + " does not see " + file.string() +
                        ". Every machine has to see it under this name.");
    }
    if (now != submitted) refuseChanged(file);
}

void checkPictures(const FarmClip& clip, const jobs::FrameRange& frames) {
    if (!clip.inputStamp) return;
    const files::NumberedPath pictures(clip.input);
    for (std::int64_t k = frames.first; k <= frames.last; ++k) {
        const fs::path picture = pictures.file(k);
        const auto now = files::stampOf(picture);
        if (now && now->modified > clip.inputStamp->modified) refuseChanged(picture);
    }
}

}  // namespace

std::optional<files::FileStamp> stampOfMask(const fs::path& mask) {
    return mask.empty() ? std::nullopt : files::stampOf(files::NumberedPath(mask).plain());
}

std::optional<files::FileStamp> stampOfInput(const fs::path& input) {
    const files::NumberedPath path(input);
    if (!jobs::isSequence(input)) return files::stampOf(path.plain());
    std::optional<files::FileStamp> stamp;
    for (const std::int64_t number : path.numbers()) {
        const auto one = files::stampOf(path.file(number));
        if (!one) continue;
        if (!stamp) stamp.emplace();
        stamp->modified = std::max(stamp->modified, one->modified);
    }
    return stamp;
}

void checkInputs(const FarmClip& clip, const jobs::FrameRange& frames) {
    if (jobs::isSequence(clip.input)) {
        checkPictures(clip, frames);
    } else {
        checkFile(clip.input, clip.inputStamp);
    }
    if (!clip.mask.empty()) checkFile(clip.mask, clip.maskStamp);
}

}  // namespace ruvex::farm
