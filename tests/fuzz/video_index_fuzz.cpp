// The list of a video's pictures, as it is stored.

#include "media/media_error.h"
#include "media/video/stored_table.h"
#include "media/video/video_index.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex::media;
using ruvex::fuzz::demand;

/// Asks for all that a reader asks for.
void useIndex(VideoIndex& index) {
    for (std::int64_t k = 0; k < index.count(); ++k) {
        const std::int64_t stored = index.shownAs(k);
        demand(stored >= 0 && stored < index.pictures(), "a sample is one of the pictures");
    }
    for (std::int64_t k = 0; k < index.pictures(); ++k) {
        if (index.timed()) demand(index.numberAt(index.timeOf(k)) == k, "a time names its picture");
        const std::int64_t key = index.keyBefore(k);
        demand(key >= 0 && key <= k, "a key frame is not behind its picture");
    }
    demand(index.count() > 0 && index.rate().num > 0 && index.rate().den > 0, "a clip has a rate");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    const auto table = tableOfBytes(bytes);
    if (!table) return 0;
    demand(tableOfBytes(bytesOfTable(*table)) == table, "a table reads back");
    ruvex::fuzz::unlessRefused<MediaError>(
        [&] {
            VideoIndex index(*table);
            useIndex(index);
            index.startAt(table->pictures[table->pictures.size() / 2].time);
            useIndex(index);
            return true;
        },
        ruvex::fuzz::demandPrintable);
    return 0;
}
