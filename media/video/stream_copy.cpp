#include "media/video/stream_copy.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "media/av_functions.h"
#include "media/video/chapter_copy.h"
#include "media/video/container_support.h"
#include "media/video/stream_loss.h"
#include "media/video/video_file.h"

namespace ruvex::media {
namespace {

constexpr int kNoStream = -1;

constexpr std::int64_t kMillisecond = 1000;  // Microseconds.
constexpr std::int64_t kPreroll = 50 * kMillisecond;

bool isSubtitle(const AVStream& stream) {
    return stream.codecpar->codec_type == AVMEDIA_TYPE_SUBTITLE;
}

/// Whether the stream has packets that are copied one by one.
bool isTimed(const AVStream& stream) {
    return isSubtitle(stream) || stream.codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
}

/// The samples at the beginning that a decoder of Opus drops, in microseconds.
std::int64_t codecDelay(const AVStream& stream) {
    const AVCodecParameters& parameters = *stream.codecpar;
    if (parameters.codec_id != AV_CODEC_ID_OPUS || parameters.sample_rate <= 0) {
        return 0;
    }
    return av_rescale(parameters.initial_padding, AV_TIME_BASE, parameters.sample_rate);
}

void setTag(AVStream& stream, const char* name, const char* text) {
    av_dict_set(&stream.metadata, name, text, AV_DICT_DONT_OVERWRITE);
}

/// Adds a cover picture as an attached file, under the name by which players know it.
int addCoverFile(const AVStream& from, AVFormatContext& output) {
    AVStream& to = addLike(from, output);
    AVCodecParameters& parameters = *to.codecpar;
    const auto size = static_cast<std::size_t>(from.attached_pic.size);
    parameters.codec_type = AVMEDIA_TYPE_ATTACHMENT;
    av_freep(&parameters.extradata);
    parameters.extradata =
        static_cast<std::uint8_t*>(av_mallocz(size + AV_INPUT_BUFFER_PADDING_SIZE));
    if (parameters.extradata == nullptr) {
        throw std::bad_alloc();
    }
    std::memcpy(parameters.extradata, from.attached_pic.data, size);
    parameters.extradata_size = static_cast<int>(size);
    const bool png = parameters.codec_id == AV_CODEC_ID_PNG;
    av_dict_copy(&to.metadata, from.metadata, 0);
    setTag(to, "filename", png ? "cover.png" : "cover.jpg");
    setTag(to, "mimetype", png ? "image/png" : "image/jpeg");
    return to.index;
}

}  // namespace

StreamCopy::StreamCopy(const CopySource& source, const std::string& name, std::int64_t frame,
                       AVFormatContext& output)
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
        addStreams(name);
        findLead(frame);
        addChapters(name);
    }
}

void StreamCopy::addChapters(const std::string& name) {
    if (holdsChapters(*output_.oformat)) {
        copyChapters(*input_, source_, lead_, output_);
    } else if (input_->nb_chapters > 0) {
        losses_.push_back(chapterLoss(name));
    }
}

void StreamCopy::addStreams(const std::string& name) {
    const int rendered = findVideo(*input_);
    for (int i = 0; i < static_cast<int>(input_->nb_streams); ++i) {
        AVStream& from = *input_->streams[i];
        const bool wanted =
            i != rendered && !isKeptOtherwise(from, *input_) && !isMuted(from, source_);
        const int to = wanted ? add(from) : kNoStream;
        if (wanted && to == kNoStream) {
            losses_.push_back(lossSentence(from, name));
        }
        const bool timed = to != kNoStream && isTimed(from);
        streams_.push_back(timed ? to : kNoStream);
        from.discard = timed ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
    }
}

int StreamCopy::add(const AVStream& from) {
    if (isTimed(from)) {
        return addTimed(from);
    }
    if (from.codecpar->codec_type == AVMEDIA_TYPE_ATTACHMENT) {
        return addAttachment(from);
    }
    return isCover(from) ? addCover(from) : kNoStream;
}

int StreamCopy::addTimed(const AVStream& from) {
    if (!canHold(*output_.oformat, from)) {
        return kNoStream;
    }
    AVStream& to = addLike(from, output_);
    to.disposition = from.disposition;
    av_dict_copy(&to.metadata, from.metadata, 0);
    return to.index;
}

int StreamCopy::addAttachment(const AVStream& from) {
    if (!holdsAttachments(*output_.oformat)) {
        return kNoStream;
    }
    AVStream& to = addLike(from, output_);
    av_dict_copy(&to.metadata, from.metadata, 0);
    setTag(to, "filename", "attachment");
    setTag(to, "mimetype", "application/octet-stream");
    return to.index;
}

int StreamCopy::addCover(const AVStream& from) {
    if (from.attached_pic.size <= 0) {
        return kNoStream;
    }
    if (holdsAttachments(*output_.oformat)) {
        return addCoverFile(from, output_);
    }
    if (!holdsCovers(*output_.oformat)) {
        return kNoStream;
    }
    AVStream& to = addLike(from, output_);
    to.disposition = AV_DISPOSITION_ATTACHED_PIC;
    AvPacket cover = newAvPacket();
    if (av_packet_ref(cover.get(), &from.attached_pic) < 0) {
        throw std::bad_alloc();
    }
    cover->stream_index = to.index;
    covers_.push_back(std::move(cover));
    return to.index;
}

void StreamCopy::findLead(std::int64_t frame) {
    if (source_.from != INT64_MIN) {
        return;
    }
    std::int64_t first = source_.zero;
    for (std::size_t i = 0; i < streams_.size(); ++i) {
        const AVStream& from = *input_->streams[i];
        if (streams_[i] == kNoStream || isSubtitle(from) || from.start_time == AV_NOPTS_VALUE) {
            continue;
        }
        const std::int64_t start = av_rescale_q(from.start_time, from.time_base, kMicroseconds);
        first = std::min(first, start + codecDelay(from));
    }
    // Whole milliseconds: the unit in which MP4 and QuickTime store when a stream begins.
    const std::int64_t lead = (source_.zero - first) / kMillisecond * kMillisecond;
    lead_ = lead > frame ? lead : 0;
}

bool StreamCopy::fetch() {
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

bool StreamCopy::isWanted() {
    const auto index = static_cast<std::size_t>(packet_->stream_index);
    if (index >= streams_.size() || streams_[index] == kNoStream ||
        packet_->pts == AV_NOPTS_VALUE) {
        return false;
    }
    const AVStream& from = *input_->streams[index];
    const std::int64_t begin = av_rescale_q(packet_->pts, from.time_base, kMicroseconds);
    const std::int64_t end =
        av_rescale_q(packet_->pts + packet_->duration, from.time_base, kMicroseconds);
    if (begin >= source_.to || std::max(end, begin + 1) <= source_.from) {
        return false;
    }
    // Matroska has no mark for packets that are decoded but not played. Those right before the
    // played ones are kept, since the decoder needs them.
    const bool isPlayed = (packet_->flags & AV_PKT_FLAG_DISCARD) == 0;
    if (!isPlayed && holdsAttachments(*output_.oformat) && end < source_.zero - kPreroll) {
        return false;
    }
    if (isSubtitle(from) && packet_->duration > 0) {
        cutSubtitle(from.time_base);
    }
    return true;
}

void StreamCopy::cutSubtitle(AVRational unit) {
    const std::int64_t earliest = std::max(source_.from, source_.zero - lead_);
    const std::int64_t from = av_rescale_q(earliest, kMicroseconds, unit);
    std::int64_t end = packet_->pts + packet_->duration;
    if (source_.to != INT64_MAX) {
        end = std::min(end, av_rescale_q(source_.to, kMicroseconds, unit));
    }
    packet_->pts = std::max(packet_->pts, from);
    packet_->dts = packet_->pts;
    packet_->duration = std::max<std::int64_t>(end - packet_->pts, 0);
}

std::int64_t StreamCopy::shiftOf(const AVStream& from, AVRational unit) const {
    // Matroska stores the times of Opus later by the decoder's delay, which its muxer does not add.
    const std::int64_t delay = holdsAttachments(*output_.oformat) ? codecDelay(from) : 0;
    return av_rescale_q(lead_ - source_.zero, kMicroseconds, unit) +
           av_rescale_q(delay, kMicroseconds, unit);
}

void StreamCopy::retime() {
    const auto index = static_cast<std::size_t>(packet_->stream_index);
    const AVStream& from = *input_->streams[index];
    const AVStream& to = *output_.streams[streams_[index]];
    // Shift in the finer of both units, so that the shift is not rounded to a coarse one.
    const bool outputIsFiner = av_cmp_q(to.time_base, from.time_base) < 0;
    const AVRational fine = outputIsFiner ? to.time_base : from.time_base;
    const std::int64_t shift = shiftOf(from, fine);
    if (packet_->dts == AV_NOPTS_VALUE) {
        packet_->dts = packet_->pts;
    }
    av_packet_rescale_ts(packet_.get(), from.time_base, fine);
    packet_->pts += shift;
    packet_->dts += shift;
    av_packet_rescale_ts(packet_.get(), fine, to.time_base);
    packet_->pos = -1;
    packet_->stream_index = to.index;
}

int StreamCopy::writeCovers() {
    for (const AvPacket& cover : covers_) {
        const int code = av_write_frame(&output_, cover.get());
        if (code < 0) {
            return code;
        }
    }
    covers_.clear();
    return 0;
}

int StreamCopy::writeUntil(std::int64_t time) {
    if (const int code = writeCovers(); code < 0) {
        return code;
    }
    while (fetch()) {
        const AVStream& from = *input_->streams[packet_->stream_index];
        const std::int64_t begin = av_rescale_q(packet_->pts, from.time_base, kMicroseconds);
        if (begin - source_.zero >= time) {
            return 0;
        }
        retime();
        pending_ = false;
        const int code = av_interleaved_write_frame(&output_, packet_.get());
        if (code < 0) {
            return code;
        }
    }
    return 0;
}

}  // namespace ruvex::media
