#include "media/picture_pool.h"

namespace ruvex::media {

AVFrame& PicturePool::take() {
    for (const AvFrame& picture : pictures_) {
        if (av_frame_is_writable(picture.get()) != 0) return *picture;
    }
    return *pictures_.emplace_back(newPicture(width_, height_, format_));
}

}  // namespace ruvex::media
