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

/// The same picture on every machine, and colour differences at full resolution in between.
constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
constexpr int kUnity = 1 << 16;
constexpr int kLinesSharedOut = 4;

/// In 1/256 of a pixel from the first of those that share a colour difference.
struct Place {
    int across;
    int down;
};
constexpr int kPixel = 256;

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

/// In a field, whose lines lie two apart in the frame: the colour differences stand in the frame
/// where those of a frame's line pair would, and the bottom field begins one line further down.
Place placeInField(const Place& place, int field) {
    return {place.across, (place.down + field * kPixel) / 2};
}

/// Only pictures that are halved both ways have a choice.
bool isSited(AVPixelFormat format) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    return description.log2_chroma_w == 1 && description.log2_chroma_h == 1;
}

void setPlace(SwsContext& scaler, const ScalerForm& form, const Place& place) {
    if (isSited(form.from)) {
        av_opt_set_int(&scaler, "src_h_chr_pos", place.across, 0);
        av_opt_set_int(&scaler, "src_v_chr_pos", place.down, 0);
    }
    if (isSited(form.to)) {
        av_opt_set_int(&scaler, "dst_h_chr_pos", place.across, 0);
        av_opt_set_int(&scaler, "dst_v_chr_pos", place.down, 0);
    }
}

Scaler makeScaler(const ScalerForm& form, int height, const Place& place) {
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

/// Every second line of a picture's planes.
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
    const bool shared = isSited(form_.from) || isSited(form_.to);
    if (interlaced && shared && form_.size.height % kLinesSharedOut == 0) {
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
