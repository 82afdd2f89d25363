#include "jobs/shared_clip.h"

namespace ruvex::jobs {

bool SharedClip::readFrom(Locked& locked, std::int64_t number, media::Frame& frame) {
    const std::lock_guard lock(locked.mutex);
    return locked.reader->read(number, frame);
}

bool SharedClip::read(std::int64_t number, media::Frame& frame) {
    return readFrom(inOrder_, number, frame);
}

bool SharedClip::readOther(std::int64_t number, media::Frame& frame) {
    if (!openAgain_) {
        return readFrom(inOrder_, number, frame);
    }
    std::call_once(opened_, [&] { other_.reader = openAgain_(); });
    return readFrom(other_, number, frame);
}

}  // namespace ruvex::jobs
