#include "media/video/write_failure.h"

#include "files/whole_file.h"
#include "media/av_library.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// The libraries return -errno for an error of the system; their own codes are four characters in a
/// negative 32-bit number, and so far below any errno.
constexpr int kErrnoLimit = 4096;

}  // namespace

void throwIfFailed(int code, const std::filesystem::path& file) {
    if (code >= 0) return;
    const bool isErrno = code > -kErrnoLimit;
    const std::string reason = takeLibraryReason(code);
    throw MediaError(isErrno ? files::writeFailure(file, AVUNERROR(code))
                             : "Cannot write " + file.string() + ": " + reason + ".");
}

}  // namespace ruvex::media
