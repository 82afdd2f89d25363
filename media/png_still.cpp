#include "media/png_still.h"

#include "media/av_handles.h"
#include "media/library_log.h"
#include "media/media_error.h"
#include "media/partial_file.h"
#include "media/png_structure.h"
#include "media/rgb_lines.h"

namespace ruvex::media {
namespace {

MediaError damaged(const std::filesystem::path& file) {
    const std::string detail = takeLibraryError();
    return MediaError(file.string() + " is damaged and cannot be decoded" +
                      (detail.empty() ? "." : " (" + detail + ")."));
}

AvCodec openCodec(const AVCodec* codec, AvCodec context) {
    context->thread_count = 1;
    if (avcodec_open2(context.get(), codec, nullptr) < 0) {
        throw MediaError(
            "This build of the FFmpeg libraries has no PNG support. Install one with it.");
    }
    return context;
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

AvFrame decode(const std::filesystem::path& file, std::span<const std::byte> bytes) {
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_PNG);
    AvCodec context = newAvCodec(codec);
    context->err_recognition = AV_EF_CRCCHECK | AV_EF_EXPLODE;
    context = openCodec(codec, std::move(context));
    AvFrame picture = newAvFrame();
    const AvPacket packet = packetOf(bytes);
    if (avcodec_send_packet(context.get(), packet.get()) < 0 ||
        avcodec_receive_frame(context.get(), picture.get()) < 0 ||
        !isRgbOrGrey(static_cast<AVPixelFormat>(picture->format))) {
        throw damaged(file);
    }
    return picture;
}

AvCodec openEncoder(const Frame& frame, const Rational& aspect) {
    const AVCodec* codec = avcodec_find_encoder(AV_CODEC_ID_PNG);
    AvCodec context = newAvCodec(codec);
    context->width = frame.width();
    context->height = frame.height();
    context->pix_fmt = frame.depth() == Depth::Bits8 ? AV_PIX_FMT_RGBA : AV_PIX_FMT_RGBA64BE;
    context->time_base = {1, 1};
    context->sample_aspect_ratio = {static_cast<int>(aspect.num), static_cast<int>(aspect.den)};
    return openCodec(codec, std::move(context));
}

AvPacket encode(const std::filesystem::path& file, AVCodecContext& encoder, const Frame& frame) {
    const AvFrame picture = newPicture(frame.width(), frame.height(), encoder.pix_fmt);
    packRgb(frame, *picture);
    AvPacket packet = newAvPacket();
    int result = avcodec_send_frame(&encoder, picture.get());
    result = result < 0 ? result : avcodec_receive_packet(&encoder, packet.get());
    if (result < 0) {
        throw MediaError("Cannot make a PNG of " + file.string() + ": " + libraryReason(result) +
                         ".");
    }
    return packet;
}

Rational pixelAspectOf(const AVFrame& picture) {
    const AVRational aspect = picture.sample_aspect_ratio;
    return aspect.num > 0 && aspect.den > 0 ? makeRational(aspect.num, aspect.den) : Rational{1, 1};
}

}  // namespace

PngStill readPng(const std::filesystem::path& file) {
    quietLibraries();
    takeLibraryError();
    const std::vector<std::byte> bytes = readWhole(file);
    if (const std::string fault = pngFault(bytes); !fault.empty()) {
        throw MediaError(file.string() + " " + fault);
    }
    const AvFrame picture = decode(file, bytes);
    const auto format = static_cast<AVPixelFormat>(picture->format);
    const Depth depth = bitsPerComponent(format) > 8 ? Depth::S214 : Depth::Bits8;
    const FrameSize size{picture->width, picture->height};
    checkFrameSize(size, depth, file.string());
    PngStill still{Frame(size, depth), hasAlpha(format), pixelAspectOf(*picture)};
    unpackRgb(*picture, still.frame);
    return still;
}

void writePng(const std::filesystem::path& file, const Frame& frame, const Rational& pixelAspect) {
    quietLibraries();
    const AvCodec encoder = openEncoder(frame, pixelAspect);
    const AvPacket packet = encode(file, *encoder, frame);
    writeWhole(file, {reinterpret_cast<const std::byte*>(packet->data),
                      static_cast<std::size_t>(packet->size)});
}

}  // namespace ruvex::media
