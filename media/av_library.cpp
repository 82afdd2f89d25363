#include "media/av_library.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <array>
#include <cerrno>
#include <cstdio>
#include <mutex>
#include <new>
#include <system_error>

namespace ruvex::media {
namespace {

/// Bytes: a cache line, and the widest vector register.
constexpr int kRowAlignment = 64;
/// Longer messages are cut off.
constexpr std::size_t kLongestMessage = 400;

template <class Owner, class T>
Owner own(T* made) {
    if (made == nullptr) {
        throw std::bad_alloc();
    }
    return Owner(made);
}

struct FirstError {
    std::mutex lock;
    std::string line;
};

FirstError& firstError() {
    static FirstError error;
    return error;
}

/// The libraries' log callback.
void keepErrors(void*, int level, const char* format, va_list arguments) {
    if (level > AV_LOG_ERROR) {
        return;
    }
    std::array<char, kLongestMessage> line{};
    std::vsnprintf(line.data(), line.size(), format, arguments);
    const std::scoped_lock hold(firstError().lock);
    if (firstError().line.empty()) {
        firstError().line = line.data();
    }
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

AVRational toAvRational(const Rational& value) {
    return {static_cast<int>(value.num), static_cast<int>(value.den)};
}

void quietLibraries() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_callback(keepErrors); });
}

std::string takeLibraryError() {
    const std::scoped_lock hold(firstError().lock);
    std::string line = std::move(firstError().line);
    firstError().line.clear();
    while (!line.empty() && (line.back() == '\n' || line.back() == '.')) {
        line.pop_back();
    }
    return line;
}

int openCodec(AVCodecContext& context, const AVCodec& codec) {
    const int code = avcodec_open2(&context, &codec, nullptr);
    if (code == AVERROR(ENOMEM)) throw std::bad_alloc();
    if (code == AVERROR(EAGAIN)) {
        throw std::system_error(EAGAIN, std::generic_category(), "a codec's threads");
    }
    return code;
}

std::string libraryVersion() {
    return av_version_info();
}

std::string libraryReason(int code) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

std::string takeLibraryReason(int code) {
    const std::string message = takeLibraryError();
    return message.empty() ? libraryReason(code) : message;
}

}  // namespace ruvex::media
