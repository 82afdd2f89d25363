#include "media/stills/still_codec.h"

extern "C" {
#include <libavutil/opt.h>
}

#include <algorithm>

#include "media/av_library.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

struct KindOfStill {
    FileKind kind;
    AVCodecID codec;
    AVPixelFormat format8;
    AVPixelFormat format16;
    /// Of the encoder: its private option, and what it is set to.
    const char* option;
    const char* value;
};

constexpr KindOfStill kKinds[] = {
    {FileKind::Png, AV_CODEC_ID_PNG, AV_PIX_FMT_RGBA, AV_PIX_FMT_RGBA64BE, nullptr, nullptr},
    {FileKind::Tiff, AV_CODEC_ID_TIFF, AV_PIX_FMT_RGBA, AV_PIX_FMT_RGBA64LE, "compression_algo",
     "deflate"},
    {FileKind::Exr, AV_CODEC_ID_EXR, AV_PIX_FMT_GBRAPF32LE, AV_PIX_FMT_GBRAPF32LE, "compression",
     "zip16"},
    {FileKind::Dpx, AV_CODEC_ID_DPX, AV_PIX_FMT_RGBA, AV_PIX_FMT_RGBA64BE, nullptr, nullptr},
    {FileKind::Jpeg, AV_CODEC_ID_MJPEG, AV_PIX_FMT_YUVJ444P, AV_PIX_FMT_YUVJ444P, nullptr, nullptr},
};

const KindOfStill& rowOf(FileKind kind) {
    return *std::find_if(std::begin(kKinds), std::end(kKinds),
                         [kind](const KindOfStill& row) { return row.kind == kind; });
}

MediaError damaged(const std::filesystem::path& file) {
    const std::string detail = takeLibraryError();
    return MediaError(file.string() + " is damaged and cannot be decoded" +
                      (detail.empty() ? "." : " (" + detail + ")."));
}

void openCodec(const AVCodec* codec, AVCodecContext& context) {
    context.thread_count = 1;
    if (codec == nullptr || avcodec_open2(&context, codec, nullptr) < 0) {
        throw MediaError(
            "This build of the FFmpeg libraries lacks a kind of still picture. Install one with "
            "PNG, TIFF, EXR, DPX and JPEG.");
    }
}

/// The decoder reads past the end, so the packet has to carry padding.
AvPacket packetOf(std::span<const std::byte> bytes) {
    AvPacket packet = newAvPacket();
    if (av_new_packet(packet.get(), static_cast<int>(bytes.size())) < 0) {
        throw std::bad_alloc();
    }
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<std::byte*>(packet->data));
    return packet;
}

/// The encoder's scale runs from 1, the finest, to 31.
int jpegScale(int quality) {
    return FF_QP2LAMBDA + FF_QP2LAMBDA * 30 * (100 - quality) / 99;
}

}  // namespace

AvFrame decodeStill(FileKind kind, const std::filesystem::path& file,
                    std::span<const std::byte> bytes) {
    quietLibraries();
    takeLibraryError();
    const AVCodec* codec = avcodec_find_decoder(rowOf(kind).codec);
    const AvCodec context = newAvCodec(codec);
    // To this decoder a tag that it does not know is reason enough to give up.
    const int strict = kind == FileKind::Tiff ? 0 : AV_EF_EXPLODE;
    context->err_recognition = AV_EF_CRCCHECK | strict;
    openCodec(codec, *context);
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
                     const Rational& pixelAspect, int quality) {
    quietLibraries();
    const KindOfStill& row = rowOf(kind);
    const AVCodec* codec = avcodec_find_encoder(row.codec);
    const AvCodec context = newAvCodec(codec);
    context->width = picture.width;
    context->height = picture.height;
    context->pix_fmt = static_cast<AVPixelFormat>(picture.format);
    context->time_base = {1, 1};
    context->sample_aspect_ratio = {static_cast<int>(pixelAspect.num),
                                    static_cast<int>(pixelAspect.den)};
    context->qmin = 1;
    context->flags |= kind == FileKind::Jpeg ? AV_CODEC_FLAG_QSCALE : 0;
    picture.quality = context->global_quality = jpegScale(quality);
    if (row.option != nullptr) {
        av_opt_set(context->priv_data, row.option, row.value, 0);
    }
    openCodec(codec, *context);
    AvPacket packet = newAvPacket();
    int result = avcodec_send_frame(context.get(), &picture);
    result = result < 0 ? result : avcodec_send_frame(context.get(), nullptr);
    result = result < 0 ? result : avcodec_receive_packet(context.get(), packet.get());
    if (result < 0) {
        throw MediaError("Cannot write " + file.string() + ": the picture cannot be coded (" +
                         libraryReason(result) + ").");
    }
    return packet;
}

}  // namespace ruvex::media
