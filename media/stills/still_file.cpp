#include "media/stills/still_file.h"

#include "files/read_file.h"
#include "files/whole_file.h"
#include "media/media_error.h"
#include "media/pixels/float_lines.h"
#include "media/pixels/frame_convert.h"
#include "media/pixels/orientation.h"
#include "media/pixels/rgb_lines.h"
#include "media/pixels/yuv_convert.h"
#include "media/stills/still_codec.h"
#include "media/stills/still_structure.h"

namespace ruvex::media {
namespace {

Rational pixelAspectOf(const AVFrame& picture) {
    const AVRational aspect = picture.sample_aspect_ratio;
    return aspect.num > 0 && aspect.den > 0 ? makeRational(aspect.num, aspect.den) : Rational{1, 1};
}

AVPixelFormat formatOf(const AVFrame& picture) {
    return static_cast<AVPixelFormat>(picture.format);
}

/// A picture as a frame, with the depth of the file.
struct Decoded {
    Frame frame;
    Depth depth;
};

Decoded fromFloat(const std::filesystem::path& file, const AVFrame& picture, AlphaForm alpha,
                  std::optional<Depth> depth) {
    const FrameSize size{picture.width, picture.height};
    checkFrameSize(size, Depth::S214, file.string());
    Frame frame(size, Depth::S214);
    unpackFloat(picture, alpha, frame);
    return {convertDepth(std::move(frame), depth.value_or(Depth::S214)), Depth::S214};
}

Decoded fromInteger(const std::filesystem::path& file, const AVFrame& picture, AlphaForm alpha,
                    std::optional<Depth> depth) {
    PictureToFrame convert(picture, file);
    const Depth wanted = depth.value_or(convert.depth());
    const bool divides = alpha == AlphaForm::Premultiplied && convert.hasAlpha();
    Frame frame;
    convert.convert(picture, frame);
    return {divides ? unpremultiplied(frame, wanted) : convertDepth(std::move(frame), wanted),
            convert.depth()};
}

/// Marks the picture with the matrix and range of JPEG files, which do not depend on the size.
void markJpeg(AVFrame& picture) {
    picture.colorspace = AVCOL_SPC_SMPTE170M;
    picture.color_range = AVCOL_RANGE_JPEG;
}

AvFrame toPicture(const Frame& frame, FileKind kind, AlphaForm alpha) {
    AvFrame picture = newPicture(frame.width(), frame.height(), storedFormat(kind, frame.depth()));
    if (alpha == AlphaForm::Straight) {
        packRgb(frame, *picture);
        return picture;
    }
    packRgb(premultiplied(frame, frame.depth()), *picture);
    return picture;
}

AvFrame toFloat(const Frame& frame, AlphaForm alpha, ExrPixels pixels) {
    AvFrame picture = newPicture(frame.width(), frame.height(), AV_PIX_FMT_GBRAPF32LE);
    packFloat(frame, alpha, *picture);
    if (pixels == ExrPixels::Half) {
        // The encoder drops the bits that a half float lacks; it does not round.
        roundToHalf(*picture);
    }
    return picture;
}

AvFrame toJpeg(const Frame& frame) {
    const AVPixelFormat format = storedFormat(FileKind::Jpeg, frame.depth());
    AvFrame picture = newPicture(frame.width(), frame.height(), format);
    FrameToYuv(frame.size(), {format, AVCOL_SPC_SMPTE170M, true}).convert(frame, *picture);
    markJpeg(*picture);
    return picture;
}

AvFrame pictureOf(FileKind kind, const Frame& frame, const StillOptions& options) {
    const AlphaForm alpha = options.alpha.value_or(usualAlpha(kind));
    switch (kind) {
        case FileKind::Exr:
            return toFloat(frame, alpha, options.exr.pixels);
        case FileKind::Jpeg:
            return toJpeg(frame);
        default:
            return toPicture(frame, kind, alpha);
    }
}

}  // namespace

Still readStill(const std::filesystem::path& file, std::optional<AlphaForm> alpha,
                std::optional<Depth> depth) {
    const FileKind kind = fileKind(file);
    const std::vector<std::byte> bytes = files::readWhole(file);
    if (const std::string fault = stillFault(kind, bytes); !fault.empty()) {
        throw MediaError(file.string() + " " + fault);
    }
    const AvFrame picture = decodeStill(kind, file, bytes);
    if (kind == FileKind::Jpeg) {
        markJpeg(*picture);
    }
    const AlphaForm form = alpha.value_or(usualAlpha(kind));
    const Orientation orientation = orientationOf(*picture);
    Decoded decoded = isFloat(formatOf(*picture)) ? fromFloat(file, *picture, form, depth)
                                                  : fromInteger(file, *picture, form, depth);
    return {setUpright(std::move(decoded.frame), orientation), decoded.depth,
            hasAlpha(formatOf(*picture)), setUpright(pixelAspectOf(*picture), orientation)};
}

void writeStill(const std::filesystem::path& file, const Frame& frame,
                const StillOptions& options) {
    const FileKind kind = fileKind(file);
    const AvFrame picture = pictureOf(kind, frame, options);
    const AvPacket packet = encodeStill(kind, file, *picture,
                                        {.pixelAspect = options.pixelAspect,
                                         .quality = options.quality.value_or(kUsualJpegQuality),
                                         .exr = options.exr});
    files::writeWhole(file, {reinterpret_cast<const std::byte*>(packet->data),
                             static_cast<std::size_t>(packet->size)});
}

}  // namespace ruvex::media
