#include "media/yuv_convert.h"

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include "media/media_error.h"
#include "media/rgb_lines.h"

namespace ruvex::media {
namespace {

constexpr int kFirstHdLine = 720;
/// The same picture on every machine, and colour differences at full resolution in between.
constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
constexpr int kUnity = 1 << 16;

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

/// In 1/256 of a pixel from the first of those that share a colour difference.
struct Place {
    int across;
    int up;
};

Place placeOf(AVChromaLocation siting) {
    switch (siting) {
        case AVCHROMA_LOC_TOPLEFT:
            return {0, 0};
        case AVCHROMA_LOC_TOP:
            return {128, 0};
        case AVCHROMA_LOC_BOTTOMLEFT:
            return {0, 256};
        case AVCHROMA_LOC_BOTTOM:
            return {128, 256};
        case AVCHROMA_LOC_CENTER:
            return {128, 128};
        default:  // left, as MPEG-2 and its successors have it where nothing is said
            return {0, 128};
    }
}

/// Only pictures that are halved both ways have a choice.
bool isSited(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    return description.log2_chroma_w == 1 && description.log2_chroma_h == 1;
}

/// Which of the two pictures is sited so.
void setSiting(SwsContext& scaler, bool source, AVPixelFormat format, AVChromaLocation siting) {
    if (!isSited(format)) {
        return;
    }
    const Place place = placeOf(siting);
    av_opt_set_int(&scaler, source ? "src_h_chr_pos" : "dst_h_chr_pos", place.across, 0);
    av_opt_set_int(&scaler, source ? "src_v_chr_pos" : "dst_v_chr_pos", place.up, 0);
}

/// `siting` is that of whichever of the two has colour differences.
Scaler makeScaler(FrameSize size, AVPixelFormat from, AVPixelFormat to, AVChromaLocation siting) {
    Scaler scaler(sws_alloc_context());
    if (!scaler) {
        throw std::bad_alloc();
    }
    for (const auto& [name, value] : {std::pair<const char*, int>{"srcw", size.width},
                                      {"srch", size.height},
                                      {"src_format", from},
                                      {"dstw", size.width},
                                      {"dsth", size.height},
                                      {"dst_format", to},
                                      {"sws_flags", kScalerFlags}}) {
        av_opt_set_int(scaler.get(), name, value, 0);
    }
    setSiting(*scaler, true, from, siting);
    setSiting(*scaler, false, to, siting);
    if (sws_init_context(scaler.get(), nullptr, nullptr) < 0) {
        throw MediaError("The FFmpeg libraries cannot convert this picture's colours (" +
                         std::string(av_get_pix_fmt_name(from)) + ").");
    }
    return scaler;
}

void setColours(SwsContext& scaler, int matrix, bool fullIn, bool fullOut) {
    const int* coefficients = sws_getCoefficients(matrix);
    sws_setColorspaceDetails(&scaler, coefficients, fullIn, coefficients, fullOut, 0, kUnity,
                             kUnity);
}

void scale(SwsContext& scaler, const AVFrame& from, AVFrame& to) {
    sws_scale(&scaler, from.data, from.linesize, 0, from.height, to.data, to.linesize);
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

bool needsScaler(const AVFrame& picture) {
    const auto format = static_cast<AVPixelFormat>(picture.format);
    const bool grey = av_pix_fmt_desc_get(format)->nb_components <= 2;
    return !isRgbOrGrey(format) || (grey && picture.color_range == AVCOL_RANGE_MPEG);
}

AVPixelFormat packedFormat(Depth depth) {
    return depth == Depth::Bits8 ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGBA64LE;
}

}  // namespace

int matrixInUse(int tagged, int height) {
    if (isKnownMatrix(tagged)) {
        return tagged;
    }
    return height >= kFirstHdLine ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
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
        throw MediaError("Cannot read " + path_.string() + ": its colours are coded as " +
                         av_color_space_name(like.colorspace) +
                         ", which is not supported. Convert it to BT.709 first.");
    }
    coding_ = {.matrix = matrixInUse(like.colorspace, size_.height),
               .full = isFullRange(like),
               .bits = bitsPerComponent(format_),
               .alpha = hasAlpha()};
    // The scaler's own way to 16-bit RGB misses white, so it only fills in colour differences
    // there.
    const bool deep = depth_ == Depth::S214;
    const AVPixelFormat between = coding_.alpha ? AV_PIX_FMT_YUVA444P16LE : AV_PIX_FMT_YUV444P16LE;
    const AVPixelFormat to = deep ? between : AV_PIX_FMT_RGBA;
    scaled_ = newPicture(size_.width, size_.height, to);
    scaler_ = makeScaler(size_, format_, to, like.chroma_location);
    setColours(*scaler_, coding_.matrix, coding_.full, deep ? coding_.full : true);
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
    scale(*scaler_, picture, *scaled_);
    if (depth_ == Depth::S214) {
        unpackDeepYuv(*scaled_, coding_, frame);
    } else {
        unpackRgb(*scaled_, frame);
    }
    return frame;
}

FrameToYuv::FrameToYuv(FrameSize size, Depth depth, const YuvForm& form)
    : format_(form.format),
      packed_(newPicture(size.width, size.height, packedFormat(depth))),
      scaler_(makeScaler(size, packedFormat(depth), form.format, form.siting)) {
    setColours(*scaler_, form.matrix, true, form.full);
}

AvFrame FrameToYuv::convert(const Frame& frame) {
    packRgb(frame, *packed_);
    AvFrame picture = newPicture(frame.width(), frame.height(), format_);
    scale(*scaler_, *packed_, *picture);
    return picture;
}

}  // namespace ruvex::media
