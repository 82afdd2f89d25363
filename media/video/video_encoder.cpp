#include "media/video/video_encoder.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <string>
#include <string_view>

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/pixels/yuv_convert.h"

namespace ruvex::media {
namespace {

constexpr int kPalLines = 576;
/// Pixels of the shorter side of the smallest pictures that FFV1 codes in slices.
constexpr int kShortestSlicedSide = 64;

/// Whether 4:2:0 divides both sides without a rest.
bool isEven(FrameSize size) {
    return size.width % 2 == 0 && size.height % 2 == 0;
}

AVPixelFormat formatFor(const VideoCodec& codec, const WriteOptions& options) {
    const bool deep = options.depth == Depth::S214;
    if (codec.exact) {
        return deep ? AV_PIX_FMT_RGBA64LE : AV_PIX_FMT_BGRA;
    }
    if (codec.alpha) {
        return AV_PIX_FMT_YUVA444P10LE;
    }
    if (deep && codec.name == std::string_view("h265")) {
        return isEven(options.size) ? AV_PIX_FMT_YUV420P10LE : AV_PIX_FMT_YUV444P10LE;
    }
    return isEven(options.size) ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV444P;
}

/// The matrix to mark. BT.601 has a code point for 625 lines and one for 525, with the same
/// coefficients; where the options do not say which, the height does.
AVColorSpace yuvMatrix(const WriteOptions& options) {
    const int matrix = matrixInUse(options.colour.matrix, options.size.height);
    const bool chosen = matrix != options.colour.matrix;
    const bool pal = chosen && options.size.height == kPalLines && matrix == AVCOL_SPC_SMPTE170M;
    return pal ? AVCOL_SPC_BT470BG : static_cast<AVColorSpace>(matrix);
}

const AVCodec& encoderFor(const VideoCodec& codec, const std::filesystem::path& path) {
    const AVCodec* encoder = avcodec_find_encoder_by_name(codec.encoder);
    if (encoder == nullptr) {
        throw MediaError("Cannot write " + path.string() +
                         ": the installed FFmpeg libraries lack " + codec.encoder +
                         ". Install a build with it, or choose another --codec.");
    }
    return *encoder;
}

void describe(AVCodecContext& coder, const WriteOptions& options, const VideoCodec& codec) {
    const bool exact = codec.exact;
    coder.width = options.size.width;
    coder.height = options.size.height;
    coder.framerate = toAvRational(options.rate);
    coder.time_base = av_inv_q(coder.framerate);
    coder.sample_aspect_ratio = toAvRational(options.pixelAspect);
    coder.color_primaries = static_cast<AVColorPrimaries>(options.colour.primaries);
    coder.color_trc = static_cast<AVColorTransferCharacteristic>(options.colour.transfer);
    coder.pix_fmt = formatFor(codec, options);
    coder.chroma_sample_location = exact ? AVCHROMA_LOC_UNSPECIFIED : AVCHROMA_LOC_LEFT;
    coder.colorspace = exact ? AVCOL_SPC_RGB : yuvMatrix(options);
    const bool full = exact || (options.colour.full && codec.fullRange);
    coder.color_range = full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
}

/// Turns on interlaced coding if the codec has it for this height.
void setFields(AVCodecContext& coder, const WriteOptions& options, const VideoCodec& codec) {
    const bool fits = codec.fieldLines > 0 && options.size.height % codec.fieldLines == 0;
    if (options.fields == FieldOrder::Progressive || !fits) {
        return;
    }
    const bool top = options.fields == FieldOrder::TopFirst;
    coder.field_order = top ? AV_FIELD_TT : AV_FIELD_BB;
    coder.flags |= AV_CODEC_FLAG_INTERLACED_DCT | AV_CODEC_FLAG_INTERLACED_ME;
    if (codec.encoder == std::string_view("libx264")) {
        // The encoder marks the first frames as top field first if only the frames say the order.
        av_opt_set(coder.priv_data, "x264-params", top ? "tff=1" : "bff=1", 0);
    }
}

/// Every frame is a key frame, for fast seeking. Larger pictures are coded in slices with
/// checksums, which threads encode in parallel. The encoder loses pixels of slices that are only a
/// few long.
void setExact(AVCodecContext& coder) {
    constexpr int kVersionWithSlices = 3;
    constexpr int kVersionWithoutSlices = 1;
    const bool slices = std::min(coder.width, coder.height) >= kShortestSlicedSide;
    coder.level = slices ? kVersionWithSlices : kVersionWithoutSlices;
    coder.gop_size = 1;
    av_opt_set_int(coder.priv_data, "slicecrc", slices ? 1 : 0, 0);
}

/// `quality` is 1 (coarse) to 100 (no visible loss). For H.264 and H.265 it gives a constant rate
/// factor of 50 to 1, for ProRes a quantizer scale of 33 to 1, where 1 is the best.
void setQuality(AVCodecContext& coder, const VideoCodec& codec, std::optional<int> quality) {
    const int coarseness = 100 - quality.value_or(codec.quality);
    if (!codec.alpha) {
        const int factor = std::max((coarseness + 1) / 2, 1);
        av_opt_set(coder.priv_data, "crf", std::to_string(factor).c_str(), 0);
        // H.265's encoder would print a banner to the terminal for each file.
        av_opt_set(coder.priv_data, "x265-params", "log-level=none", 0);
        return;
    }
    av_opt_set(coder.priv_data, "profile", "4444", 0);
    coder.flags |= AV_CODEC_FLAG_QSCALE;
    coder.global_quality = FF_QP2LAMBDA * std::max(coarseness / 3, 1);
}

}  // namespace

bool isInterlaced(const AVCodecContext& coder) {
    return coder.field_order == AV_FIELD_TT || coder.field_order == AV_FIELD_BB;
}

AvCodec openEncoder(const VideoCodec& codec, const std::filesystem::path& path,
                    const WriteOptions& options, bool globalHeader) {
    const AVCodec& encoder = encoderFor(codec, path);
    AvCodec coder = newAvCodec(&encoder);
    describe(*coder, options, codec);
    coder->thread_count = 0;
    if (globalHeader) {
        coder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    setFields(*coder, options, codec);
    if (codec.exact) {
        setExact(*coder);
    } else {
        setQuality(*coder, codec, options.quality);
    }
    const int code = openCodec(*coder, encoder);
    if (code < 0) {
        throw MediaError("Cannot write " + path.string() + ": " + takeLibraryReason(code) + ".");
    }
    return coder;
}

}  // namespace ruvex::media
