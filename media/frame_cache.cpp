#include "media/frame_cache.h"

#include <algorithm>

namespace ruvex::media {
namespace {

constexpr std::size_t kMostFrames = 8;
constexpr std::size_t kMostBytes = std::size_t{256} << 20;

}  // namespace

const Frame* FrameCache::find(std::int64_t number) {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [number](const Entry& entry) {
        return entry.number == number;
    });
    if (found == entries_.end()) {
        return nullptr;
    }
    entries_.splice(entries_.begin(), entries_, found);
    return &entries_.front().frame;
}

void FrameCache::keep(std::int64_t number, Frame frame) {
    const std::size_t bytes = std::max<std::size_t>(frame.bytes().size(), 1);
    const std::size_t most = std::clamp<std::size_t>(kMostBytes / bytes, 1, kMostFrames);
    while (entries_.size() >= most) {
        entries_.pop_back();
    }
    entries_.push_front({number, std::move(frame)});
}

}  // namespace ruvex::media
