#include "farm/leftovers.h"

#include <filesystem>
#include <system_error>

#include "farm/fresh_folder.h"
#include "files/partial_file.h"

namespace ruvex::farm {

void removeLeftovers(const Farm& farm, std::size_t clip) {
    const Layout& layout = farm.layout();
    const FarmClip& one = farm.job().clips.at(clip);
    files::removeAbandoned(one.output);
    if (one.isJoined()) {
        files::removeAbandoned(layout.chunkFiles(clip, one.chunkExtension));
    }
    files::removeAbandoned(one.output.parent_path() / kRefreshName);
}

void removeRecordLeftovers(const Farm& farm) {
    const Layout& layout = farm.layout();
    for (const std::filesystem::path& records : {layout.begun(), layout.done(), layout.failed()}) {
        files::removeAbandoned(Layout::chunkRecords(records));
        files::removeAbandoned(Layout::joinRecords(records));
        files::removeAbandoned(records / kRefreshName);
    }
    files::removeAbandoned(layout.chunks() / kRefreshName);
}

void removeChunks(const Farm& farm, std::size_t clip) {
    const FarmClip& one = farm.job().clips.at(clip);
    if (!one.isJoined() || farm.job().keepChunks) return;
    const std::int64_t end = one.firstChunk + chunksOf(farm.job(), one);
    for (std::int64_t number = one.firstChunk; number < end; ++number) {
        std::error_code ignored;
        std::filesystem::remove(farm.inRender(farm.chunk(number)).file, ignored);
    }
}

}  // namespace ruvex::farm
