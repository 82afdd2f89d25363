#include "farm/older_pictures.h"

#include <system_error>

#include "farm/farm_error.h"
#include "files/numbered_path.h"
#include "files/whole_file.h"

namespace ruvex::farm {

namespace fs = std::filesystem;

void removeOlderPictures(const Farm& farm, const FarmChunk& chunk, const jobs::RenderPlan& plan) {
    if (farm.clipOf(chunk).isJoined() || plan.resume) return;
    const fs::path mark = farm.layout().begunMark(chunk.number);
    std::error_code error;
    if (fs::exists(mark, error)) return;
    const files::NumberedPath pictures(plan.output);
    for (std::int64_t k = chunk.frames.first; k <= chunk.frames.last; ++k) {
        const fs::path picture = pictures.file(k);
        fs::remove(picture, error);
        if (error) {
            throw FarmError(picture.string() + " is of an earlier render and cannot be removed: " +
                            error.message() + ".");
        }
    }
    // Afterwards: a task that is killed before this removes the rest.
    files::writeWhole(mark, {});
}

}  // namespace ruvex::farm
