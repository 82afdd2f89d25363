#include "media/pixels/picture_scaler.h"

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

#include <string>

#include "media/media_error.h"
#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

/// Bit-exact arithmetic for the same picture on every machine, and chroma at full resolution within
/// the conversion.
constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
/// A contrast and a saturation of 1, in the library's 16.16 fixed point.
constexpr int kUnity = 1 << 16;
/// Each field of a 4:2:0 picture needs an even number of lines.
constexpr int kInterlacedLines = 4;

/// The place of a chroma sample, in 1/256 of a pixel from the top left of the 2x2 luma samples that
/// share it.
struct ChromaPlace {
    int across;
    int down;
};
constexpr int kPixel = 256;
constexpr int kHalfPixel = kPixel / 2;

ChromaPlace placeOf(AVChromaLocation siting) {
    switch (siting) {
        case AVCHROMA_LOC_TOPLEFT:
            return {0, 0};
        case AVCHROMA_LOC_TOP:
            return {kHalfPixel, 0};
        case AVCHROMA_LOC_BOTTOMLEFT:
            return {0, kPixel};
        case AVCHROMA_LOC_BOTTOM:
            return {kHalfPixel, kPixel};
        case AVCHROMA_LOC_CENTER:
            return {kHalfPixel, kHalfPixel};
        default:  // left, the default of MPEG-2, H.264 and H.265
            return {0, kHalfPixel};
    }
}

/// The place within a field, in units of the field's lines, which are two frame lines apart. Chroma
/// is sited as in a frame, and the bottom field begins one frame line lower.
ChromaPlace placeInField(const ChromaPlace& place, int field) {
    return {place.across, (place.down + field * kPixel) / 2};
}

/// Whether the format is 4:2:0, the only one whose siting varies.
bool isSited(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    return description.log2_chroma_w == 1 && description.log2_chroma_h == 1;
}

void setPlace(SwsContext& scaler, const ScalerForm& form, const ChromaPlace& place) {
    if (isSited(form.from)) {
        av_opt_set_int(&scaler, "src_h_chr_pos", place.across, 0);
        av_opt_set_int(&scaler, "src_v_chr_pos", place.down, 0);
    }
    if (isSited(form.to)) {
        av_opt_set_int(&scaler, "dst_h_chr_pos", place.across, 0);
        av_opt_set_int(&scaler, "dst_v_chr_pos", place.down, 0);
    }
}

Scaler makeScaler(const ScalerForm& form, int height, const ChromaPlace& place) {
    Scaler scaler(sws_alloc_context());
    if (!scaler) {
        throw std::bad_alloc();
    }
    for (const auto& [name, value] : {std::pair<const char*, int>{"srcw", form.size.width},
                                      {"srch", height},
                                      {"src_format", form.from},
                                      {"dstw", form.size.width},
                                      {"dsth", height},
                                      {"dst_format", form.to},
                                      {"sws_flags", kScalerFlags}}) {
        av_opt_set_int(scaler.get(), name, value, 0);
    }
    setPlace(*scaler, form, place);
    if (sws_init_context(scaler.get(), nullptr, nullptr) < 0) {
        throw MediaError("The FFmpeg libraries cannot convert this picture's colours (" +
                         std::string(av_get_pix_fmt_name(form.from)) + ").");
    }
    const int* coefficients = sws_getCoefficients(form.matrix);
    sws_setColorspaceDetails(scaler.get(), coefficients, form.fullIn, coefficients, form.fullOut, 0,
                             kUnity, kUnity);
    return scaler;
}

/// The planes of one field: every second line.
struct FieldView {
    std::array<std::uint8_t*, 4> data{};
    std::array<int, 4> pitch{};

    FieldView(const AVFrame& picture, int field) {
        for (std::size_t plane = 0; plane < data.size() && picture.data[plane] != nullptr;
             ++plane) {
            data[plane] = planeLine(picture, static_cast<int>(plane), field);
            pitch[plane] = 2 * picture.linesize[plane];
        }
    }
};

}  // namespace

PictureScaler::PictureScaler(const ScalerForm& form)
    : form_(form), whole_(makeScaler(form, form.size.height, placeOf(form.siting))) {}

void PictureScaler::scale(const AVFrame& from, AVFrame& to, bool interlaced) {
    const bool sited = isSited(form_.from) || isSited(form_.to);
    if (interlaced && sited && form_.size.height % kInterlacedLines == 0) {
        scaleField(from, to, 0);
        scaleField(from, to, 1);
    } else {
        sws_scale(whole_.get(), from.data, from.linesize, 0, from.height, to.data, to.linesize);
    }
}

void PictureScaler::scaleField(const AVFrame& from, AVFrame& to, int field) {
    const int height = form_.size.height / 2;
    Scaler& scaler = fields_[static_cast<std::size_t>(field)];
    if (!scaler) {
        scaler = makeScaler(form_, height, placeInField(placeOf(form_.siting), field));
    }
    const FieldView source(from, field);
    const FieldView result(to, field);
    sws_scale(scaler.get(), source.data.data(), source.pitch.data(), 0, height, result.data.data(),
              result.pitch.data());
}

}  // namespace ruvex::media
