#include "jobs/shared_clip.h"

#include <string>

#include "media/media_error.h"

namespace ruvex::jobs {

bool SharedClip::readFrom(Locked& locked, std::int64_t number, media::Frame& frame) {
    const std::lock_guard lock(locked.mutex);
    return locked.reader->read(number, frame);
}

bool SharedClip::read(std::int64_t number, media::Frame& frame) {
    return readFrom(inOrder_, number, frame);
}

void SharedClip::readExisting(std::int64_t number, media::Frame& frame) {
    if (!read(number, frame)) {
        throw media::MediaError("The input has ended before frame " + std::to_string(number) + ".");
    }
}

bool SharedClip::readOther(std::int64_t number, media::Frame& frame) {
    if (!openAgain_) {
        return readFrom(inOrder_, number, frame);
    }
    std::call_once(opened_, [&] { other_.reader = openAgain_(); });
    return readFrom(other_, number, frame);
}

}  // namespace ruvex::jobs
