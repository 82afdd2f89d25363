#include "media/av_handles.h"

#include <new>

namespace ruvex::media {
namespace {

constexpr int kRowAlignment = 64;

template <class Owner, class T>
Owner own(T* made) {
    if (made == nullptr) {
        throw std::bad_alloc();
    }
    return Owner(made);
}

}  // namespace

AvFrame newAvFrame() {
    return own<AvFrame>(av_frame_alloc());
}
AvPacket newAvPacket() {
    return own<AvPacket>(av_packet_alloc());
}
AvCodec newAvCodec(const AVCodec* codec) {
    return own<AvCodec>(avcodec_alloc_context3(codec));
}

AVRational toAvRational(const Rational& value) {
    return {static_cast<int>(value.num), static_cast<int>(value.den)};
}

AvFrame newPicture(int width, int height, AVPixelFormat format) {
    AvFrame picture = newAvFrame();
    picture->width = width;
    picture->height = height;
    picture->format = format;
    if (av_frame_get_buffer(picture.get(), kRowAlignment) < 0) {
        throw std::bad_alloc();
    }
    return picture;
}

}  // namespace ruvex::media
