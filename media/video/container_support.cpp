#include "media/video/container_support.h"

#include <new>
#include <string_view>

#include "media/av_functions.h"

namespace ruvex::media {
namespace {

/// Frees an output in memory.
struct FreeTrial {
    void operator()(AVFormatContext* format) const {
        std::uint8_t* written = nullptr;
        if (format->pb != nullptr) {
            avio_close_dyn_buf(format->pb, &written);
            av_free(written);
        }
        avformat_free_context(format);
    }
};

/// Whether the libraries list the codec for this container. Matroska also holds codecs that its
/// list lacks, by the tags of other containers.
bool isListed(const AVOutputFormat& container, AVCodecID codec) {
    return container.name == std::string_view("matroska") ||
           avformat_query_codec(&container, codec, FF_COMPLIANCE_EXPERIMENTAL) == 1;
}

}  // namespace

AVStream& addLike(const AVStream& from, AVFormatContext& output) {
    AVStream* to = avformat_new_stream(&output, nullptr);
    if (to == nullptr || avcodec_parameters_copy(to->codecpar, from.codecpar) < 0) {
        throw std::bad_alloc();
    }
    to->codecpar->codec_tag = 0;
    to->time_base = from.time_base;
    return *to;
}

// It takes both tests: for some codecs that are listed the header cannot be written, and for some
// that are not listed only the packets fail. The header is written to memory.
bool canHold(const AVOutputFormat& container, const AVStream& stream) {
    if (!isListed(container, stream.codecpar->codec_id)) {
        return false;
    }
    AVFormatContext* made = nullptr;
    if (avformat_alloc_output_context2(&made, &container, nullptr, nullptr) < 0) {
        throw std::bad_alloc();
    }
    const std::unique_ptr<AVFormatContext, FreeTrial> trial(made);
    if (avio_open_dyn_buf(&trial->pb) < 0) {
        throw std::bad_alloc();
    }
    trial->strict_std_compliance = FF_COMPLIANCE_EXPERIMENTAL;
    addLike(stream, *trial);
    const bool begun = avformat_write_header(trial.get(), nullptr) >= 0;
    takeLibraryError();  // Not an error: it says that the stream cannot be held.
    return begun;
}

bool holdsAttachments(const AVOutputFormat& container) {
    return container.name == std::string_view("matroska");
}

bool holdsChapters(const AVOutputFormat& container) {
    return container.name != std::string_view("mxf");
}

bool holdsCovers(const AVOutputFormat& container) {
    return container.name == std::string_view("mp4");
}

}  // namespace ruvex::media
