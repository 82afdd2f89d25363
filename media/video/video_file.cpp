#include "media/video/video_file.h"

#include <fstream>

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/video/container_end.h"

namespace ruvex::media {
namespace {

namespace fs = std::filesystem;

std::string whyNotOpened(const fs::path& path, int code) {
    std::error_code ignored;
    const std::string start = "Cannot read " + path.string() + ": ";
    if (!fs::exists(path, ignored)) {
        return start + "there is no such file. Check the name.";
    }
    if (!fs::is_regular_file(path, ignored)) {
        return start + "it is not a file.";
    }
    if (fs::file_size(path, ignored) == 0) {
        return start + "it is empty.";
    }
    return start + "it is cut off or not a video file (" + takeLibraryReason(code) + ").";
}

AVFormatContext* open(const fs::path& path) {
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) {
        throw MediaError(whyNotOpened(path, 0));
    }
    AVFormatContext* format = nullptr;
    // The prefix keeps a colon in a name from being taken for a protocol.
    const int code =
        avformat_open_input(&format, ("file:" + path.string()).c_str(), nullptr, nullptr);
    if (code < 0) {
        throw MediaError(whyNotOpened(path, code));
    }
    return format;
}

}  // namespace

bool isCover(const AVStream& stream) {
    constexpr int kCover = AV_DISPOSITION_ATTACHED_PIC | AV_DISPOSITION_TIMED_THUMBNAILS;
    return (stream.disposition & kCover) != 0;
}

int findVideo(AVFormatContext& format) {
    const auto best = [&format](int wanted) {
        return av_find_best_stream(&format, AVMEDIA_TYPE_VIDEO, wanted, -1, nullptr, 0);
    };
    const int found = best(-1);
    if (found < 0 || !isCover(*format.streams[found])) {
        return found;
    }
    for (int i = 0; i < static_cast<int>(format.nb_streams); ++i) {
        if (!isCover(*format.streams[i]) && best(i) == i) {
            return i;
        }
    }
    return AVERROR_STREAM_NOT_FOUND;
}

bool isCutOff(const fs::path& path, const AVFormatContext& format, std::uint64_t frameBytes) {
    std::ifstream file(path, std::ios::binary);
    return isCutOff(file, format.iformat->name, frameBytes);
}

std::string cutOff(const fs::path& path) {
    const std::string detail = takeLibraryError();
    return path.string() + " is cut off or damaged: it ends before its last frame" +
           (detail.empty() ? "" : " (" + detail + ")") + ". Copy it again.";
}

VideoFile::VideoFile(const fs::path& path, FileLook look) : path_(path) {
    quietLibraries();
    takeLibraryError();
    format_.reset(open(path));
    format_->flags |= AVFMT_FLAG_GENPTS;
    const int code =
        look == FileLook::Header ? 0 : avformat_find_stream_info(format_.get(), nullptr);
    stream_ = code < 0 ? -1 : findVideo(*format_);
    if (stream_ < 0) {
        throw MediaError(isCutOff(path, *format_)
                             ? cutOff(path)
                             : "Cannot read " + path.string() + ": there is no video in it.");
    }
    for (unsigned i = 0; i < format_->nb_streams; ++i) {
        const bool wanted = static_cast<int>(i) == stream_;
        format_->streams[i]->discard = wanted ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

bool VideoFile::next(AVPacket& packet) {
    for (;;) {
        av_packet_unref(&packet);
        const int code = av_read_frame(format_.get(), &packet);
        if (code == AVERROR_EOF) {
            return false;
        }
        if (code < 0) {
            throw MediaError(cutOff(path_));
        }
        if (packet.stream_index == stream_) {
            return true;
        }
    }
}

bool VideoFile::seek(std::int64_t time) {
    return av_seek_frame(format_.get(), stream_, time, AVSEEK_FLAG_BACKWARD) >= 0;
}

}  // namespace ruvex::media
