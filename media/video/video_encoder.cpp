#include "media/video/video_encoder.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>
#include <string>

#include "media/av_library.h"
#include "media/media_error.h"
#include "media/pixels/yuv_convert.h"
#include "media/video/interframe_settings.h"

namespace ruvex::media {
namespace {

constexpr int kPalLines = 576;
/// Pixels of the shorter side of the smallest pictures that FFV1 codes in slices.
constexpr int kShortestSlicedSide = 64;

/// Whether 4:2:0 divides both sides without a rest.
bool isEven(FrameSize size) {
    return size.width % 2 == 0 && size.height % 2 == 0;
}

/// The matrix to mark. BT.601 has a code point for 625 lines and one for 525, with the same
/// coefficients; where the options do not say which, the height does.
AVColorSpace yuvMatrix(const WriteOptions& options, const VideoCodec& codec) {
    // The encoder of DNxHR always marks BT.709, and decoders prefer that mark to the container's.
    if (codec.family == CodecFamily::Dnxhr) return AVCOL_SPC_BT709;
    const int matrix = matrixInUse(options.colour.matrix, options.size.height);
    const bool chosen = matrix != options.colour.matrix;
    const bool pal = chosen && options.size.height == kPalLines && matrix == AVCOL_SPC_SMPTE170M;
    return pal ? AVCOL_SPC_BT470BG : static_cast<AVColorSpace>(matrix);
}

/// The FFmpeg libraries' name of a family's encoder.
const char* encoderName(CodecFamily family) {
    switch (family) {
        case CodecFamily::Ffv1:
            return "ffv1";
        case CodecFamily::ProRes:
            return "prores_ks";
        case CodecFamily::Dnxhr:
            return "dnxhd";
        case CodecFamily::H264:
            return "libx264";
        default:
            return "libx265";
    }
}

const AVCodec& encoderFor(const VideoCodec& codec, const std::filesystem::path& path) {
    const char* name = encoderName(codec.family);
    const AVCodec* encoder = avcodec_find_encoder_by_name(name);
    if (encoder == nullptr) {
        throw MediaError("Cannot write " + path.string() +
                         ": the installed FFmpeg libraries lack " + name +
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
    coder.pix_fmt = pixelFormat(codec, options);
    coder.chroma_sample_location = exact ? AVCHROMA_LOC_UNSPECIFIED : AVCHROMA_LOC_LEFT;
    coder.colorspace = exact ? AVCOL_SPC_RGB : yuvMatrix(options, codec);
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

/// Sets the profile of ProRes and DNxHR. A profile has a bit rate of its own, but for a codec with
/// a choice of quality: ProRes 4444 is coded with a constant quantizer scale of 33 to 1, of which 1
/// is the best, for a quality of 1 to 100.
void setProfile(AVCodecContext& coder, const VideoCodec& codec, const WriteOptions& options) {
    constexpr int kQualityPerScale = 3;
    av_opt_set_int(coder.priv_data, "profile", codec.profile, 0);
    if (codec.quality > 0) {
        const int coarseness = 100 - options.quality.value_or(codec.quality);
        coder.flags |= AV_CODEC_FLAG_QSCALE;
        coder.global_quality = FF_QP2LAMBDA * std::max(coarseness / kQualityPerScale, 1);
    }
}

void setFamily(AVCodecContext& coder, const VideoCodec& codec, const WriteOptions& options) {
    switch (codec.family) {
        case CodecFamily::Ffv1:
            return setExact(coder);
        case CodecFamily::ProRes:
        case CodecFamily::Dnxhr:
            return setProfile(coder, codec, options);
        default:
            return setInterframe(coder, codec, options);
    }
}

}  // namespace

AVPixelFormat pixelFormat(const VideoCodec& codec, const WriteOptions& options) {
    const bool deep = options.depth == Depth::S214;
    if (codec.format != AV_PIX_FMT_NONE) {
        return codec.format;
    }
    if (codec.exact) {
        return deep ? AV_PIX_FMT_RGBA64LE : AV_PIX_FMT_BGRA;
    }
    if (deep && codec.family == CodecFamily::H265) {
        return isEven(options.size) ? AV_PIX_FMT_YUV420P10LE : AV_PIX_FMT_YUV444P10LE;
    }
    return isEven(options.size) ? AV_PIX_FMT_YUV420P : AV_PIX_FMT_YUV444P;
}

bool isInterlaced(const AVCodecContext& coder) {
    return coder.field_order == AV_FIELD_TT || coder.field_order == AV_FIELD_BB;
}

AvCodec openEncoder(const VideoCodec& codec, const std::filesystem::path& path,
                    const WriteOptions& options, bool globalHeader) {
    const AVCodec& encoder = encoderFor(codec, path);
    AvCodec coder = newAvCodec(&encoder);
    describe(*coder, options, codec);
    coder->thread_count = options.encoderThreads.value_or(0);
    if (globalHeader) {
        coder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    }
    setFields(*coder, options, codec);
    setFamily(*coder, codec, options);
    const int code = openCodec(*coder, encoder);
    if (code < 0) {
        throw MediaError("Cannot write " + path.string() + ": " + takeLibraryReason(code) + ".");
    }
    return coder;
}

}  // namespace ruvex::media
