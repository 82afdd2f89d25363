#include "farm/layout.h"

#include "farm/absolute_name.h"
#include "files/numbered_path.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

fs::path numbered(const fs::path& pattern, std::int64_t number) {
    return files::NumberedPath(pattern).file(number);
}

fs::path numbered(const fs::path& pattern, std::size_t number) {
    return numbered(pattern, static_cast<std::int64_t>(number));
}

}  // namespace

Layout::Layout(const fs::path& folder) : folder_(absoluteName(folder)) {}

fs::path Layout::jobFile(const std::string& clip) const {
    return folder_ / "jobs" / (clip + ".json");
}

fs::path Layout::indexFile(const std::string& clip) const {
    return folder_ / "jobs" / (clip + ".index");
}

fs::path Layout::log(const std::string& array, std::int64_t index) const {
    return logs() / (array + "_" + std::to_string(index) + ".txt");
}

fs::path Layout::chunkFiles(std::size_t clip, const std::string& extension) const {
    return chunks() / (std::to_string(clip) + "-%06d" + extension);
}

fs::path Layout::chunkFile(std::size_t clip, std::int64_t chunk,
                           const std::string& extension) const {
    return numbered(chunkFiles(clip, extension), chunk);
}

fs::path Layout::chunkRecords(const fs::path& folder) {
    return folder / "chunk-%06d.json";
}

fs::path Layout::joinRecords(const fs::path& folder) {
    return folder / "join-%06d.json";
}

fs::path Layout::begunMark(std::int64_t chunk) const {
    return numbered(chunkRecords(begun()), chunk);
}

fs::path Layout::doneRecord(std::int64_t chunk) const {
    return numbered(chunkRecords(done()), chunk);
}

fs::path Layout::joinRecord(std::size_t clip) const {
    return numbered(joinRecords(done()), clip);
}

fs::path Layout::failureRecord(std::int64_t chunk) const {
    return numbered(chunkRecords(failed()), chunk);
}

fs::path Layout::joinFailureRecord(std::size_t clip) const {
    return numbered(joinRecords(failed()), clip);
}

}  // namespace ruvex::farm
