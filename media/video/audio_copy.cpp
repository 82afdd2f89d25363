#include "media/video/audio_copy.h"

#include <algorithm>
#include <string_view>

#include "media/av_library.h"

namespace ruvex::media {
namespace {

constexpr AVRational kMicroseconds = {1, AV_TIME_BASE};
constexpr int kNoStream = -1;

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

/// Adds a stream of the same codec, parameters and time base.
AVStream& addLike(const AVStream& from, AVFormatContext& output) {
    AVStream* to = avformat_new_stream(&output, nullptr);
    if (to == nullptr || avcodec_parameters_copy(to->codecpar, from.codecpar) < 0) {
        throw std::bad_alloc();
    }
    to->codecpar->codec_tag = 0;
    to->time_base = from.time_base;
    return *to;
}

/// Whether the libraries list the codec for this container. Matroska also holds codecs that its
/// list lacks, by the tags of other containers.
bool isListed(const AVOutputFormat& container, AVCodecID codec) {
    return container.name == std::string_view("matroska") ||
           avformat_query_codec(&container, codec, FF_COMPLIANCE_EXPERIMENTAL) == 1;
}

/// Whether a container can hold such a stream. It takes both tests: for some codecs that are listed
/// the header cannot be written, and for some that are not listed only the packets fail. The header
/// is written to memory.
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

}  // namespace

AudioCopy::AudioCopy(const AudioSource& source, AVFormatContext& output)
    : source_(source), output_(output), packet_(newAvPacket()) {
    if (source.path.empty()) {
        return;
    }
    AVFormatContext* input = nullptr;
    if (avformat_open_input(&input, ("file:" + source.path.string()).c_str(), nullptr, nullptr) <
        0) {
        return;
    }
    input_.reset(input);
    // Also where the libraries call a codec in this container experimental.
    output_.strict_std_compliance = FF_COMPLIANCE_EXPERIMENTAL;
    if (avformat_find_stream_info(input, nullptr) >= 0) {
        addStreams();
    }
}

void AudioCopy::addStreams() {
    for (unsigned i = 0; i < input_->nb_streams; ++i) {
        AVStream& from = *input_->streams[i];
        const AVCodecParameters& parameters = *from.codecpar;
        streams_.push_back(kNoStream);
        from.discard = AVDISCARD_ALL;
        if (parameters.codec_type != AVMEDIA_TYPE_AUDIO) {
            continue;
        }
        if (!canHold(*output_.oformat, from)) {
            leftOut_.emplace_back(avcodec_get_name(parameters.codec_id));
            continue;
        }
        AVStream& to = addLike(from, output_);
        to.disposition = from.disposition;
        av_dict_copy(&to.metadata, from.metadata, 0);
        from.discard = AVDISCARD_DEFAULT;
        streams_.back() = to.index;
    }
}

bool AudioCopy::fetch() {
    while (!pending_ && input_) {
        av_packet_unref(packet_.get());
        if (av_read_frame(input_.get(), packet_.get()) < 0) {
            input_.reset();
            return false;
        }
        pending_ = isWanted();
    }
    return pending_;
}

bool AudioCopy::isWanted() const {
    const auto index = static_cast<std::size_t>(packet_->stream_index);
    if (index >= streams_.size() || streams_[index] == kNoStream ||
        packet_->pts == AV_NOPTS_VALUE) {
        return false;
    }
    const AVRational unit = input_->streams[index]->time_base;
    const std::int64_t begin = av_rescale_q(packet_->pts, unit, kMicroseconds);
    const std::int64_t end = av_rescale_q(packet_->pts + packet_->duration, unit, kMicroseconds);
    return begin < source_.to && std::max(end, begin + 1) > source_.from;
}

int AudioCopy::writeUntil(std::int64_t time) {
    while (fetch()) {
        const auto index = static_cast<std::size_t>(packet_->stream_index);
        const AVRational unit = input_->streams[index]->time_base;
        const std::int64_t shift = av_rescale_q(source_.zero, kMicroseconds, unit);
        if (av_rescale_q(packet_->pts - shift, unit, kMicroseconds) >= time) {
            return 0;
        }
        packet_->pts -= shift;
        packet_->dts = packet_->dts == AV_NOPTS_VALUE ? packet_->pts : packet_->dts - shift;
        packet_->pos = -1;
        packet_->stream_index = streams_[index];
        av_packet_rescale_ts(packet_.get(), unit, output_.streams[streams_[index]]->time_base);
        pending_ = false;
        const int code = av_interleaved_write_frame(&output_, packet_.get());
        if (code < 0) {
            return code;
        }
    }
    return 0;
}

}  // namespace ruvex::media
