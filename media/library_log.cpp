#include "media/library_log.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <array>
#include <cstdio>
#include <mutex>

namespace ruvex::media {
namespace {

struct LastError {
    std::mutex lock;
    std::string line;
};

LastError& lastError() {
    static LastError error;
    return error;
}

void keepErrors(void*, int level, const char* format, va_list arguments) {
    if (level > AV_LOG_ERROR) {
        return;
    }
    std::array<char, 400> line{};
    std::vsnprintf(line.data(), line.size(), format, arguments);
    const std::scoped_lock hold(lastError().lock);
    if (lastError().line.empty()) {
        lastError().line = line.data();
    }
}

}  // namespace

void quietLibraries() {
    static std::once_flag once;
    std::call_once(once, [] { av_log_set_callback(keepErrors); });
}

std::string takeLibraryError() {
    const std::scoped_lock hold(lastError().lock);
    std::string line = std::move(lastError().line);
    lastError().line.clear();
    while (!line.empty() && (line.back() == '\n' || line.back() == '.')) {
        line.pop_back();
    }
    return line;
}

std::string libraryReason(int code) {
    std::array<char, AV_ERROR_MAX_STRING_SIZE> text{};
    av_strerror(code, text.data(), text.size());
    return text.data();
}

}  // namespace ruvex::media
