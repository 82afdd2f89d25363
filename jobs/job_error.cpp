#include "jobs/job_error.h"

#include <array>
#include <cstddef>

namespace ruvex::jobs {
namespace {

constexpr auto kLastField = static_cast<std::size_t>(JobField::Parameters);

/// In the order of JobField.
constexpr std::array<std::string_view, kLastField + 1> kFieldNames = {
    "input",        "inputFormat",    "size",        "rate",           "alpha",  "fieldOrder",
    "output",       "outputFormat",   "outputSize",  "resultAlpha",    "codec",  "quality",
    "encoderSpeed", "encoderThreads", "exrPixels",   "exrCompression", "mute",   "frames",
    "depth",        "workers",        "projectSize", "pixelAspect",    "region", "fields",
    "mask",         "ends",           "comparison",  "framesAtOnce",   "resume", "parameters"};

}  // namespace

std::string_view fieldName(JobField field) {
    return kFieldNames.at(static_cast<std::size_t>(field));
}

}  // namespace ruvex::jobs
