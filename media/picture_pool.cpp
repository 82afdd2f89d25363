#include "media/picture_pool.h"

namespace ruvex::media {

AVFrame& PicturePool::take() {
    for (const AvFrame& picture : pictures_) {
        if (av_frame_is_writable(picture.get()) != 0) return *picture;
    }
    return *pictures_.emplace_back(newPicture(width_, height_, format_));
}

HeldMemory PicturePool::held() const {
    HeldMemory held;
    for (const AvFrame& picture : pictures_) {
        std::size_t bytes = 0;
        for (const AVBufferRef* plane : picture->buf) bytes += plane ? plane->size : 0;
        held.add(bytes);
    }
    return held;
}

}  // namespace ruvex::media
