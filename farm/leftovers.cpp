#include "farm/leftovers.h"

#include <filesystem>

#include "files/partial_file.h"

namespace ruvex::farm {

void removeLeftovers(const Farm& farm, const FarmClip& clip) {
    const Layout& layout = farm.layout();
    files::removeAbandoned(clip.output);
    if (clip.isJoined()) {
        files::removeAbandoned(layout.chunks() / ("%06d" + clip.chunkExtension));
    }
    for (const std::filesystem::path& records : {layout.done(), layout.failed()}) {
        files::removeAbandoned(records / "chunk-%06d.json");
        files::removeAbandoned(records / "join-%06d.json");
    }
}

}  // namespace ruvex::farm
