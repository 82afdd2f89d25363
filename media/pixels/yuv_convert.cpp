#include "media/pixels/yuv_convert.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include "media/av_functions.h"
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
    if (isRgbOrGrey(format_)) {
        return;
    }
    checkMatrix(like);
    if (isYuv(format_)) {
        prepareYuv(format_, like);
    } else {
        prepareScaler(like);
    }
}

void PictureToFrame::checkMatrix(const AVFrame& like) const {
    const bool unmarked = like.colorspace == AVCOL_SPC_UNSPECIFIED ||
                          like.colorspace == AVCOL_SPC_RESERVED || like.colorspace == AVCOL_SPC_RGB;
    if (!unmarked && !isKnownMatrix(like.colorspace)) {
        throw MediaError("Cannot read " + path_.string() + ": its colour matrix, " +
                         av_color_space_name(like.colorspace) +
                         ", is not supported. Convert it to BT.709 first.");
    }
}

void PictureToFrame::prepareYuv(AVPixelFormat format, const AVFrame& like) {
    const YuvCoding coding{.matrix = matrixInUse(like.colorspace, size_.height),
                           .full = isFullRange(like),
                           .bits = bitsPerComponent(format)};
    yuv_.emplace(size_, format, coding, like.chroma_location);
}

/// The scaler's conversion to 16-bit RGB does not reach white. Deep pictures are therefore
/// converted to YUV first.
void PictureToFrame::prepareScaler(const AVFrame& like) {
    const bool deep = depth_ == Depth::S214;
    const AVPixelFormat deepYuv = hasAlpha() ? AV_PIX_FMT_YUVA444P16LE : AV_PIX_FMT_YUV444P16LE;
    const AVPixelFormat to = deep ? deepYuv : AV_PIX_FMT_RGBA;
    scaled_ = newPicture(size_.width, size_.height, to);
    scaler_.emplace(ScalerForm{size_, format_, to, matrixInUse(like.colorspace, size_.height),
                               isFullRange(like)});
    if (deep) {
        prepareYuv(to, like);
    }
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

void PictureToFrame::convert(const AVFrame& picture, Frame& into) {
    if (picture.format != format_ || FrameSize{picture.width, picture.height} != size_) {
        throw MediaError(path_.string() +
                         " changes its size or pixel format within the clip, "
                         "which is not supported. Convert it first.");
    }
    if (!scaler_) return unpack(picture, into);
    scaler_->scale(picture, *scaled_);
    unpack(*scaled_, into);
}

void PictureToFrame::unpack(const AVFrame& picture, Frame& into) {
    makeRoom(into, size_, depth_);
    if (yuv_) {
        yuv_->unpack(picture, picture.interlaced_frame != 0, into);
    } else {
        unpackRgb(picture, into);
    }
}

FrameToYuv::FrameToYuv(FrameSize size, const YuvForm& form) : packer_(size, form) {}

}  // namespace ruvex::media
