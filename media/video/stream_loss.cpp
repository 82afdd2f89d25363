#include "media/video/stream_loss.h"

#include <algorithm>
#include <cctype>

#include "files/words.h"
#include "media/av_functions.h"
#include "media/media_error.h"
#include "media/video/video_file.h"

namespace ruvex::media {
namespace {

std::string codecOf(const AVStream& stream) {
    return avcodec_get_name(stream.codecpar->codec_id);
}

std::string tagOf(const AVStream& stream, const char* name) {
    const AVDictionaryEntry* entry = av_dict_get(stream.metadata, name, nullptr, 0);
    constexpr std::size_t kLongestQuote = 60;
    return entry == nullptr ? "" : files::printable(entry->value, kLongestQuote);
}

/// The codec, or where the libraries do not know it the container's four letters for it.
std::string dataKind(const AVStream& stream) {
    const bool unknown = stream.codecpar->codec_id == AV_CODEC_ID_NONE ||
                         stream.codecpar->codec_id == AV_CODEC_ID_BIN_DATA;
    const unsigned tag = stream.codecpar->codec_tag;
    const bool letters = tag != 0 && std::isalnum(static_cast<int>(tag & 0xFF)) != 0;
    if (!unknown || !letters) {
        return codecOf(stream);
    }
    char text[AV_FOURCC_MAX_STRING_SIZE];
    return files::printable(av_fourcc_make_string(text, tag), AV_FOURCC_MAX_STRING_SIZE);
}

std::string videoLoss(const AVStream& stream, const std::string& name) {
    if (isCover(stream)) {
        return "The cover picture is left out: " + name + " cannot hold it.";
    }
    return "Video stream " + std::to_string(stream.index) + " (" + codecOf(stream) + ", " +
           std::to_string(stream.codecpar->width) + "x" + std::to_string(stream.codecpar->height) +
           ") is left out: only one video stream is rendered.";
}

std::string attachmentLoss(const AVStream& stream, const std::string& name) {
    const std::string file = tagOf(stream, "filename");
    return "The attachment " + (file.empty() ? codecOf(stream) : file) + " is left out: " + name +
           " cannot hold it.";
}

}  // namespace

bool isKeptOtherwise(const AVStream& stream, const AVFormatContext& file) {
    if (stream.codecpar->codec_type != AVMEDIA_TYPE_DATA) {
        return false;
    }
    const bool timecode = stream.codecpar->codec_tag == MKTAG('t', 'm', 'c', 'd');
    // The demuxer discards the streams that it reads chapters from.
    const bool chapters = file.nb_chapters > 0 && stream.discard == AVDISCARD_ALL;
    return timecode || chapters;
}

std::string lossSentence(const AVStream& stream, const std::string& name) {
    switch (stream.codecpar->codec_type) {
        case AVMEDIA_TYPE_AUDIO:
            return "Audio coded as " + codecOf(stream) + " is left out: " + name +
                   " cannot hold it.";
        case AVMEDIA_TYPE_SUBTITLE:
            return "Subtitles coded as " + codecOf(stream) + " are left out: " + name +
                   " cannot hold them.";
        case AVMEDIA_TYPE_VIDEO:
            return videoLoss(stream, name);
        case AVMEDIA_TYPE_ATTACHMENT:
            return attachmentLoss(stream, name);
        default:
            return "Data stream " + std::to_string(stream.index) + " (" + dataKind(stream) +
                   ") is left out: data is not copied.";
    }
}

bool isMuted(const AVStream& stream, const CopySource& source) {
    return !source.sound && stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
}

bool hasSound(const CopySource& source) try {
    if (source.path.empty() || !source.sound) return false;
    const VideoFile file(source.path);
    const AVFormatContext& format = file.format();
    return std::any_of(
        format.streams, format.streams + format.nb_streams,
        [](const AVStream* stream) { return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO; });
} catch (const MediaError&) {
    return false;
}

std::string chapterLoss(const std::string& name) {
    return "The chapters are left out: " + name + " cannot hold them.";
}

std::vector<std::string> lossesOf(const CopySource& source, const std::string& name) try {
    const VideoFile file(source.path);
    const AVFormatContext& format = file.format();
    std::vector<std::string> losses;
    for (unsigned i = 0; i < format.nb_streams; ++i) {
        const AVStream& stream = *format.streams[i];
        const bool wanted = !isKeptOtherwise(stream, format) && !isMuted(stream, source);
        if (&stream != &file.stream() && wanted) {
            losses.push_back(lossSentence(stream, name));
        }
    }
    if (format.nb_chapters > 0) {
        losses.push_back(chapterLoss(name));
    }
    return losses;
} catch (const MediaError&) {
    return {};
}

}  // namespace ruvex::media
