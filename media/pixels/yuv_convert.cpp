#include "media/pixels/yuv_convert.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include "media/media_error.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

/// The fewest lines of a picture that counts as high definition.
constexpr int kHdLines = 720;

bool isKnownMatrix(int matrix) {
    switch (matrix) {
        case AVCOL_SPC_BT709:
        case AVCOL_SPC_FCC:
        case AVCOL_SPC_BT470BG:
        case AVCOL_SPC_SMPTE170M:
        case AVCOL_SPC_SMPTE240M:
        case AVCOL_SPC_BT2020_NCL:
            return true;
        default:
            return false;
    }
}

bool isFullRange(const AVFrame& picture) {
    switch (picture.format) {
        case AV_PIX_FMT_YUVJ420P:
        case AV_PIX_FMT_YUVJ422P:
        case AV_PIX_FMT_YUVJ444P:
        case AV_PIX_FMT_YUVJ440P:
        case AV_PIX_FMT_YUVJ411P:
            return true;
        default:
            return picture.color_range == AVCOL_RANGE_JPEG;
    }
}

/// YUV, and grey of limited range.
bool needsScaler(const AVFrame& picture) {
    const auto format = static_cast<AVPixelFormat>(picture.format);
    const bool grey = av_pix_fmt_desc_get(format)->nb_components <= 2;
    return !isRgbOrGrey(format) || (grey && picture.color_range == AVCOL_RANGE_MPEG);
}

/// The RGB format that packRgb gives the scaler.
AVPixelFormat packedFormat(Depth depth) {
    return depth == Depth::Bits8 ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGBA64LE;
}

}  // namespace

int matrixInUse(int tagged, int height) {
    if (isKnownMatrix(tagged)) {
        return tagged;
    }
    return height >= kHdLines ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
}

PictureToFrame::PictureToFrame(const AVFrame& like, std::filesystem::path path)
    : path_(std::move(path)),
      format_(static_cast<AVPixelFormat>(like.format)),
      size_{like.width, like.height},
      depth_(bitsPerComponent(format_) > 8 ? Depth::S214 : Depth::Bits8) {
    checkFrameSize(size_, depth_, path_.string());
    if (needsScaler(like)) {
        prepareScaler(like);
    }
}

void PictureToFrame::prepareScaler(const AVFrame& like) {
    const bool unmarked = like.colorspace == AVCOL_SPC_UNSPECIFIED ||
                          like.colorspace == AVCOL_SPC_RESERVED || like.colorspace == AVCOL_SPC_RGB;
    if (!unmarked && !isKnownMatrix(like.colorspace)) {
        throw MediaError("Cannot read " + path_.string() + ": its colour matrix, " +
                         av_color_space_name(like.colorspace) +
                         ", is not supported. Convert it to BT.709 first.");
    }
    coding_ = {.matrix = matrixInUse(like.colorspace, size_.height),
               .full = isFullRange(like),
               .bits = bitsPerComponent(format_),
               .alpha = hasAlpha()};
    // The scaler's conversion to 16-bit RGB does not reach white. For deep pictures it therefore
    // only interpolates chroma to 4:4:4, and unpackDeepYuv does the rest.
    const bool deep = depth_ == Depth::S214;
    const AVPixelFormat deepYuv = coding_.alpha ? AV_PIX_FMT_YUVA444P16LE : AV_PIX_FMT_YUV444P16LE;
    const AVPixelFormat to = deep ? deepYuv : AV_PIX_FMT_RGBA;
    scaled_ = newPicture(size_.width, size_.height, to);
    scaler_.emplace(ScalerForm{size_, format_, to, like.chroma_location, coding_.matrix,
                               coding_.full, deep ? coding_.full : true});
}

bool PictureToFrame::hasAlpha() const {
    return media::hasAlpha(format_);
}

Chroma PictureToFrame::chroma() const {
    if (isRgbOrGrey(format_)) {
        return Chroma::Unspecified;
    }
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format_);
    if (description.log2_chroma_w == 0) {
        return Chroma::C444;
    }
    return description.log2_chroma_h == 0 ? Chroma::C422 : Chroma::C420;
}

Frame PictureToFrame::convert(const AVFrame& picture) {
    if (picture.format != format_ || FrameSize{picture.width, picture.height} != size_) {
        throw MediaError(path_.string() +
                         " changes its size or pixel format within the clip, "
                         "which is not supported. Convert it first.");
    }
    Frame frame(size_, depth_);
    if (!scaler_) {
        unpackRgb(picture, frame);
        return frame;
    }
    scaler_->scale(picture, *scaled_, picture.interlaced_frame != 0);
    if (depth_ == Depth::S214) {
        unpackDeepYuv(*scaled_, coding_, frame);
    } else {
        unpackRgb(*scaled_, frame);
    }
    return frame;
}

FrameToYuv::FrameToYuv(FrameSize size, Depth depth, const YuvForm& form)
    : form_(form),
      packed_(newPicture(size.width, size.height, packedFormat(depth))),
      scaler_({size, packedFormat(depth), form.format, form.siting, form.matrix, true, form.full}) {
}

AvFrame FrameToYuv::convert(const Frame& frame) {
    packRgb(frame, *packed_);
    AvFrame picture = newPicture(frame.width(), frame.height(), form_.format);
    scaler_.scale(*packed_, *picture, form_.interlaced);
    return picture;
}

}  // namespace ruvex::media
