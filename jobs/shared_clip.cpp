#include "jobs/shared_clip.h"

#include <string>

#include "media/media_error.h"

namespace ruvex::jobs {

bool SharedClip::readFrom(Locked& locked, std::int64_t number, media::Frame& frame,
                          media::Use use) {
    const std::lock_guard lock(locked.mutex);
    return locked.reader->read(number, frame, use);
}

bool SharedClip::read(std::int64_t number, media::Frame& frame) {
    const bool once = openAgain_ || !servesOthers();
    return readFrom(inOrder_, number, frame, once ? media::Use::Once : media::Use::Again);
}

media::HeldMemory SharedClip::held() const {
    media::HeldMemory held = inOrder_.reader->held();
    if (other_.reader) held.add(other_.reader->held());
    return held;
}

void SharedClip::readExisting(std::int64_t number, media::Frame& frame) {
    if (!read(number, frame)) {
        throw media::MediaError("The input has ended before frame " + std::to_string(number) + ".");
    }
}

bool SharedClip::readOther(std::int64_t number, media::Frame& frame) {
    if (!openAgain_) {
        return readFrom(inOrder_, number, frame, media::Use::Again);
    }
    std::call_once(opened_, [&] { other_.reader = openAgain_(); });
    return readFrom(other_, number, frame, media::Use::Again);
}

}  // namespace ruvex::jobs
