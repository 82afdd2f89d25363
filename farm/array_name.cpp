#include "farm/array_name.h"

#include <charconv>

namespace ruvex::farm {
namespace {

std::string startOf(Work work, const FarmJob& job) {
    return "ruvex-" + job.id + "-" + wordOf(work) + "-";
}

}  // namespace

std::string toText(const ArrayName& name, const FarmJob& job) {
    return startOf(name.work, job) + std::to_string(name.first);
}

std::optional<ArrayName> arrayNamed(const std::string& text, const FarmJob& job) {
    for (const Work work : {Work::Task, Work::Join}) {
        const std::string start = startOf(work, job);
        if (!text.starts_with(start)) continue;
        std::int64_t first = 0;
        const char* const end = text.data() + text.size();
        const auto read = std::from_chars(text.data() + start.size(), end, first);
        if (read.ec == std::errc() && read.ptr == end) return ArrayName{work, first};
    }
    return std::nullopt;
}

std::string allArrayNames(const FarmJob& job) {
    std::string text;
    const auto add = [&](Work work, std::int64_t count) {
        for (std::int64_t first = 0; first < count; first += job.arrayLength) {
            text.append(text.empty() ? "" : ",").append(toText({work, first}, job));
        }
    };
    add(Work::Task, chunksOf(job));
    add(Work::Join, std::ssize(job.clips));
    return text;
}

std::filesystem::path logOf(const Farm& farm, Work work, std::int64_t number) {
    const std::int64_t first = arrayStart(farm.job(), number);
    return farm.layout().log(toText({work, first}, farm.job()), number - first);
}

}  // namespace ruvex::farm
