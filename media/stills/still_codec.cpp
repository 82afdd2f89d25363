#include "media/stills/still_codec.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>

#include "media/av_library.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

struct StillKind {
    FileKind kind;
    AVCodecID codec;
    AVPixelFormat format8;   ///< Stores 8-bit frames.
    AVPixelFormat format16;  ///< Stores S2.14 frames.
};

constexpr StillKind kStillKinds[] = {
    {FileKind::Png, AV_CODEC_ID_PNG, AV_PIX_FMT_RGBA, AV_PIX_FMT_RGBA64BE},
    {FileKind::Tiff, AV_CODEC_ID_TIFF, AV_PIX_FMT_RGBA, AV_PIX_FMT_RGBA64LE},
    {FileKind::Exr, AV_CODEC_ID_EXR, AV_PIX_FMT_GBRAPF32LE, AV_PIX_FMT_GBRAPF32LE},
    {FileKind::Dpx, AV_CODEC_ID_DPX, AV_PIX_FMT_RGBA, AV_PIX_FMT_RGBA64BE},
    {FileKind::Jpeg, AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ444P, AV_PIX_FMT_YUVJ444P},
};

const StillKind& rowOf(FileKind kind) {
    return *std::find_if(std::begin(kStillKinds), std::end(kStillKinds),
                         [kind](const StillKind& row) { return row.kind == kind; });
}

MediaError damaged(const std::filesystem::path& file) {
    const std::string detail = takeLibraryError();
    return MediaError(file.string() + " is damaged and cannot be decoded" +
                      (detail.empty() ? "." : " (" + detail + ")."));
}

void openStillCodec(const AVCodec* codec, AVCodecContext& context) {
    context.thread_count = 1;
    if (codec == nullptr || openCodec(context, *codec) < 0) {
        throw MediaError(
            "This build of the FFmpeg libraries lacks the codec of a still picture. Install a "
            "build "
            "with PNG, TIFF, EXR, DPX and JPEG.");
    }
}

/// A copy of the bytes, with the padding that decoders need since they read past the end.
AvPacket packetOf(std::span<const std::byte> bytes) {
    AvPacket packet = newAvPacket();
    if (av_new_packet(packet.get(), static_cast<int>(bytes.size())) < 0) {
        throw std::bad_alloc();
    }
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<std::byte*>(packet->data));
    return packet;
}

/// The quality that is the encoder's quantizer scale of 1 (the best) for 100, and 31 for 1, in the
/// libraries' unit.
int jpegScale(int quality) {
    constexpr int kBestScale = 1;
    constexpr int kWorstScale = 31;
    constexpr int kQualitySteps = 99;
    return FF_QP2LAMBDA * kBestScale +
           FF_QP2LAMBDA * (kWorstScale - kBestScale) * (100 - quality) / kQualitySteps;
}

const char* compressionName(ExrCompression compression) {
    switch (compression) {
        case ExrCompression::None:
            return "none";
        case ExrCompression::Rle:
            return "rle";
        case ExrCompression::Zip1:
            return "zip1";
        default:
            return "zip16";
    }
}

/// Sets the options that only the encoder of this kind has.
void setPrivateOptions(AVCodecContext& context, FileKind kind, const ExrForm& exr) {
    void* options = context.priv_data;
    if (kind == FileKind::Png) {
        // A third of the time that the encoder's defaults take. Pictures with noise become 4 %
        // larger, pictures without it smaller, since each row is stored as a difference from the
        // row above.
        context.compression_level = 1;
        av_opt_set(options, "pred", "paeth", 0);
    }
    if (kind == FileKind::Tiff) {
        av_opt_set(options, "compression_algo", "deflate", 0);
    }
    if (kind == FileKind::Exr) {
        av_opt_set(options, "compression", compressionName(exr.compression), 0);
        av_opt_set(options, "format", exr.pixels == ExrPixels::Half ? "half" : "float", 0);
    }
}

}  // namespace

AvFrame decodeStill(FileKind kind, const std::filesystem::path& file,
                    std::span<const std::byte> bytes) {
    quietLibraries();
    takeLibraryError();
    const AVCodec* codec = avcodec_find_decoder(rowOf(kind).codec);
    const AvCodec context = newAvCodec(codec);
    // When strict, the TIFF decoder also refuses files for tags that it does not know.
    const int strict = kind == FileKind::Tiff ? 0 : AV_EF_EXPLODE;
    context->err_recognition = AV_EF_CRCCHECK | strict;
    openStillCodec(codec, *context);
    AvFrame picture = newAvFrame();
    const AvPacket packet = packetOf(bytes);
    if (avcodec_send_packet(context.get(), packet.get()) < 0 ||
        avcodec_receive_frame(context.get(), picture.get()) < 0 ||
        picture->decode_error_flags != 0) {
        throw damaged(file);
    }
    return picture;
}

AVPixelFormat storedFormat(FileKind kind, Depth depth) {
    return depth == Depth::Bits8 ? rowOf(kind).format8 : rowOf(kind).format16;
}

AvPacket encodeStill(FileKind kind, const std::filesystem::path& file, AVFrame& picture,
                     const EncodeOptions& options) {
    quietLibraries();
    const StillKind& row = rowOf(kind);
    const AVCodec* codec = avcodec_find_encoder(row.codec);
    const AvCodec context = newAvCodec(codec);
    context->width = picture.width;
    context->height = picture.height;
    context->pix_fmt = static_cast<AVPixelFormat>(picture.format);
    context->time_base = {1, 1};
    context->sample_aspect_ratio = toAvRational(options.pixelAspect);
    context->qmin = 1;
    context->flags |= kind == FileKind::Jpeg ? AV_CODEC_FLAG_QSCALE : 0;
    picture.quality = context->global_quality = jpegScale(options.quality);
    setPrivateOptions(*context, kind, options.exr);
    openStillCodec(codec, *context);
    AvPacket packet = newAvPacket();
    int result = avcodec_send_frame(context.get(), &picture);
    result = result < 0 ? result : avcodec_send_frame(context.get(), nullptr);
    result = result < 0 ? result : avcodec_receive_packet(context.get(), packet.get());
    if (result < 0) {
        throw MediaError("Cannot write " + file.string() + ": the picture cannot be encoded (" +
                         libraryReason(result) + ").");
    }
    return packet;
}

}  // namespace ruvex::media
