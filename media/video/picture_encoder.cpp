#include "media/video/picture_encoder.h"

#include <utility>

#include "media/av_library.h"
#include "media/pixels/rgb_lines.h"
#include "media/video/video_encoder.h"
#include "media/video/write_failure.h"

namespace ruvex::media {

PictureEncoder::PictureEncoder(const VideoCodec& codec, std::filesystem::path path,
                               const WriteOptions& options, bool globalHeader)
    : path_(std::move(path)),
      exact_(codec.exact),
      alpha_(options.alpha),
      coder_(openEncoder(codec, path_, options, globalHeader)),
      pictures_(options.size.width, options.size.height, coder_->pix_fmt) {
    if (!exact_) {
        convert_.emplace(options.size, YuvForm{coder_->pix_fmt, coder_->colorspace,
                                               coder_->color_range == AVCOL_RANGE_JPEG,
                                               AVCHROMA_LOC_LEFT, isInterlaced(*coder_)});
    }
}

AVFrame& PictureEncoder::toPicture(const Frame& frame) {
    if (alpha_ != AlphaForm::Premultiplied) {
        return pack(frame);
    }
    // The product has more bits than an 8-bit frame, which deep YUV can hold.
    const bool deep = !exact_ && bitsPerComponent(coder_->pix_fmt) > 8;
    premultiply(frame, deep ? Depth::S214 : frame.depth(), premultiplied_);
    return pack(premultiplied_);
}

AVFrame& PictureEncoder::pack(const Frame& frame) {
    AVFrame& picture = pictures_.take();
    if (convert_) {
        convert_->convert(frame, picture);
    } else {
        packRgb(frame, picture);
    }
    return picture;
}

void PictureEncoder::send(const Frame& frame) {
    send(toPicture(frame));
}

void PictureEncoder::send(AVFrame& picture) {
    picture.pts = sent_++;
    // The encoders of H.264 and H.265 would code a picture as a decoder has marked it.
    picture.pict_type = AV_PICTURE_TYPE_NONE;
    // The ProRes encoder takes the marks of its frames from these fields.
    picture.color_primaries = coder_->color_primaries;
    picture.color_trc = coder_->color_trc;
    picture.colorspace = coder_->colorspace;
    picture.color_range = coder_->color_range;
    picture.interlaced_frame = isInterlaced(*coder_) ? 1 : 0;
    picture.top_field_first = coder_->field_order == AV_FIELD_TT ? 1 : 0;
    throwIfFailed(avcodec_send_frame(coder_.get(), &picture), path_);
}

void PictureEncoder::drain() {
    throwIfFailed(avcodec_send_frame(coder_.get(), nullptr), path_);
}

bool PictureEncoder::receive(AVPacket& packet) {
    const int code = avcodec_receive_packet(coder_.get(), &packet);
    if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) return false;
    throwIfFailed(code, path_);
    return true;
}

HeldMemory PictureEncoder::held() const {
    HeldMemory held = pictures_.held();
    held.add(premultiplied_);
    return held;
}

}  // namespace ruvex::media
