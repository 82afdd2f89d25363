#include "media/video/video_decoder.h"

#include <string_view>
#include <utility>

#include "media/av_library.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// Throws std::bad_alloc where memory has run out, for which the file is not to blame.
MediaError undecodable(const std::filesystem::path& path, int code) {
    if (code == AVERROR(ENOMEM)) throw std::bad_alloc();
    return MediaError(path.string() + " is damaged: a frame cannot be decoded (" +
                      takeLibraryReason(code) + ").");
}

/// The range of pictures without a mark. Y4M without a range tag is of limited range, grey too.
AVColorRange usualRange(const AVFormatContext& file) {
    const bool y4m = file.iformat->name == std::string_view("yuv4mpegpipe");
    return y4m ? AVCOL_RANGE_MPEG : AVCOL_RANGE_UNSPECIFIED;
}

}  // namespace

VideoDecoder::VideoDecoder(const std::filesystem::path& path, FileLook look, Watch watch)
    : path_(path), look_(look), watch_(std::move(watch)), packet_(newAvPacket()) {
    rewind();
}

void VideoDecoder::openDecoder() {
    const AVCodecParameters& parameters = *file_->stream().codecpar;
    const AVCodec* codec = avcodec_find_decoder(parameters.codec_id);
    if (codec == nullptr) {
        throw MediaError("Cannot read " + path_.string() + ": there is no decoder for its video (" +
                         avcodec_get_name(parameters.codec_id) + ").");
    }
    codec_ = newAvCodec(codec);
    codec_->thread_count = 0;
    codec_->err_recognition = AV_EF_CRCCHECK;
    int code = avcodec_parameters_to_context(codec_.get(), &parameters);
    codec_->pkt_timebase = file_->stream().time_base;
    code = code < 0 ? code : openCodec(*codec_, *codec);
    if (code < 0) {
        throw undecodable(path_, code);
    }
}

void VideoDecoder::rewind() {
    file_ = std::make_unique<VideoFile>(path_, look_);
    openDecoder();
    drained_ = false;
}

bool VideoDecoder::seek(std::int64_t time) {
    if (!file_->seek(time)) {
        return false;
    }
    avcodec_flush_buffers(codec_.get());
    drained_ = false;
    return true;
}

void VideoDecoder::feed() {
    if (drained_) {
        return;
    }
    drained_ = !file_->next(*packet_);
    if (watch_ && !drained_) watch_(*packet_);
    const int code = avcodec_send_packet(codec_.get(), drained_ ? nullptr : packet_.get());
    if (code < 0) {
        throw undecodable(path_, code);
    }
}

bool VideoDecoder::next(AVFrame& picture) {
    for (;;) {
        const int code = avcodec_receive_frame(codec_.get(), &picture);
        if (code == 0) {
            break;
        }
        if (code == AVERROR_EOF) {
            return false;
        }
        if (code != AVERROR(EAGAIN)) {
            throw undecodable(path_, code);
        }
        feed();
    }
    if (picture.decode_error_flags != 0 || (picture.flags & AV_FRAME_FLAG_CORRUPT) != 0) {
        throw undecodable(path_, AVERROR_INVALIDDATA);
    }
    if (picture.color_range == AVCOL_RANGE_UNSPECIFIED) {
        picture.color_range = usualRange(file_->format());
    }
    picture.pts = picture.pts == AV_NOPTS_VALUE ? picture.best_effort_timestamp : picture.pts;
    return true;
}

}  // namespace ruvex::media
