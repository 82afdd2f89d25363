// Whether the file of a video is all there: AVI, Matroska, MP4, GIF, Flash video, ASF, Ogg, MXF,
// Y4M, DV.

#include <sstream>
#include <string>

#include "media/video/container_end.h"
#include "tests/fuzz/fuzz.h"

namespace {

using ruvex::fuzz::demand;

constexpr const char* kFormats[] = {"avi", "matroska,webm", "mov,mp4,m4a,3gp,3g2,mj2",
                                    "gif", "flv",           "asf",
                                    "ogg", "mxf",           "yuv4mpegpipe",
                                    "dv",  "unknown"};
constexpr std::uint64_t kFrameBytes = 6;

bool isCutOff(const std::string& file, const char* format) {
    std::istringstream stream(file);
    return ruvex::media::isCutOff(stream, format, kFrameBytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string file(ruvex::fuzz::textOf(data, size));
    for (const char* format : kFormats) {
        demand(isCutOff(file, format) == isCutOff(file, format), "the same file, the same end");
    }
    demand(!isCutOff(file, "unknown"), "other containers have no known end");
    if (!isCutOff(file, "gif")) {
        demand(!isCutOff(file + "behind", "gif"), "bytes behind the trailer do no harm");
    }
    return 0;
}
