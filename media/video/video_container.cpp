#include "media/video/video_container.h"

#include "files/words.h"
#include "media/clip_tags.h"
#include "media/hdr_metadata.h"
#include "media/media_error.h"
#include "media/video/write_failure.h"

namespace ruvex::media {
namespace {

/// Frames. No codec here reorders over more, so that a decoding time further before its display
/// time is wrong.
constexpr int kMostReordered = 16;

/// The libraries' name of the container.
const char* containerOf(const std::filesystem::path& path) {
    const std::string extension = files::lowerCase(path.extension().string());
    if (extension == ".mkv") return "matroska";
    if (extension == ".mxf") return "mxf";
    return extension == ".mov" ? "mov" : "mp4";
}

}  // namespace

bool needsGlobalHeader(const std::filesystem::path& path) {
    const AVOutputFormat* container = av_guess_format(containerOf(path), nullptr, nullptr);
    return container != nullptr && (container->flags & AVFMT_GLOBALHEADER) != 0;
}

VideoContainer::VideoContainer(const std::filesystem::path& path, const VideoCodec& codec,
                               const AVCodecContext& coder, const WriteOptions& options)
    : path_(path), frame_(coder.time_base), file_(path) {
    AVFormatContext* format = nullptr;
    check(avformat_alloc_output_context2(&format, nullptr, containerOf(path), nullptr));
    format_.reset(format);
    // Without random identifiers, so that the same frames give the same file.
    format_->flags |= AVFMT_FLAG_BITEXACT;
    addPictures(codec, coder, options);
    addBeside(options.copied);
    check(avio_open(&format_->pb, ("file:" + file_.path().string()).c_str(), AVIO_FLAG_WRITE));
    check(avformat_write_header(format_.get(), nullptr));
}

void VideoContainer::addPictures(const VideoCodec& codec, const AVCodecContext& coder,
                                 const WriteOptions& options) {
    AVStream* stream = avformat_new_stream(format_.get(), nullptr);
    if (stream == nullptr) throw std::bad_alloc();
    check(avcodec_parameters_from_context(stream->codecpar, &coder));
    // The MXF muxer looks for the profile here, where the encoder of ProRes does not put it.
    stream->codecpar->profile = codec.profile;
    stream->time_base = coder.time_base;
    stream->avg_frame_rate = coder.framerate;
    stream->sample_aspect_ratio = coder.sample_aspect_ratio;
    writeTags(options.tags, *format_, *stream);
    writeHdr(options.hdr, *stream);
}

void VideoContainer::addBeside(CopySource source) {
    if (isMxf(path_)) {
        sound_.emplace(source, path_.string(), *format_);
        source.sound = false;
    }
    copy_.emplace(source, path_.string(), timeOf(1), *format_);
}

void VideoContainer::write(AVPacket& packet) {
    packet.stream_index = 0;
    packet.duration = 1;
    // The H.265 encoder leaves decoding times undefined for clips that are too short for
    // reordering. Their frames are decoded in display order.
    if (packet.dts > packet.pts || packet.dts < packet.pts - kMostReordered) {
        packet.dts = packet.pts;
    }
    const AVRational unit = format_->streams[0]->time_base;
    // Rounded up: the container's edit list would round a fraction of a millisecond down.
    const std::int64_t lead = av_rescale_q_rnd(copy_->lead(), kMicroseconds, unit, AV_ROUND_UP);
    av_packet_rescale_ts(&packet, frame_, unit);
    packet.pts += lead;
    packet.dts += lead;
    check(av_interleaved_write_frame(format_.get(), &packet));
    check(format_->pb->error);
    writeBeside(++packets_);
}

void VideoContainer::writeBeside(std::int64_t frames) {
    check(copy_->writeUntil(timeOf(frames)));
    if (sound_) check(sound_->writeUntil(timeOf(frames)));
}

void VideoContainer::finish(std::int64_t frames) {
    if (packets_ != frames) {
        throw MediaError("Cannot write " + path_.string() + ": its encoder gave " +
                         std::to_string(packets_) + " frames instead of " + std::to_string(frames) +
                         ".");
    }
    check(copy_->writeUntil(INT64_MAX));
    // The muxer drops the last picture if the samples of its time are not complete, by its own
    // count of samples for each picture, and what is left over after the last picture.
    if (sound_) check(sound_->writeUntil(timeOf(frames + 1)));
    check(av_write_trailer(format_.get()));
    avio_flush(format_->pb);
    check(format_->pb->error);
    check(avio_closep(&format_->pb));
    file_.commit();
}

std::vector<std::string> VideoContainer::remarks() const {
    std::vector<std::string> remarks = copy_->losses();
    if (sound_) remarks.insert(remarks.end(), sound_->remarks().begin(), sound_->remarks().end());
    return remarks;
}

std::int64_t VideoContainer::timeOf(std::int64_t frames) const {
    return av_rescale_q(frames, frame_, kMicroseconds);
}

void VideoContainer::check(int code) const {
    throwIfFailed(code, path_);
}

}  // namespace ruvex::media
