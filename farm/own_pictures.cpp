#include "farm/own_pictures.h"

#include <chrono>
#include <system_error>
#include <thread>

#include "farm/farm_error.h"
#include "files/whole_file.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

/// Empty if there is no mark.
std::optional<fs::file_time_type> timeOf(const fs::path& mark) {
    std::error_code error;
    const fs::file_time_type time = fs::last_write_time(mark, error);
    if (!error) return time;
    if (error == std::errc::no_such_file_or_directory) return std::nullopt;
    throw FarmError("Cannot read " + mark.string() + ": " + error.message() + ".");
}

void writeMark(const fs::path& mark) {
    files::writeWhole(mark, {});
    // Longer than the steps in which a system counts the times of files: what is written from now
    // on is later than the mark.
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
}

}  // namespace

std::optional<fs::file_time_type> ownPicturesAfter(const Farm& farm, const FarmChunk& chunk,
                                                   const jobs::RenderPlan& plan) {
    if (farm.clipOf(chunk).isJoined()) return std::nullopt;
    const fs::path mark = farm.layout().begunMark(chunk.number);
    auto time = timeOf(mark);
    if (time || plan.resume) return time;
    writeMark(mark);
    return timeOf(mark);
}

void disownPictures(const Farm& farm, const FarmChunk& chunk) {
    if (!farm.clipOf(chunk).isJoined()) writeMark(farm.layout().begunMark(chunk.number));
}

}  // namespace ruvex::farm
