#include "media/pixels/picture_scaler.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <new>
#include <string>

#include "media/av_functions.h"
#include "media/media_error.h"

namespace ruvex::media {
namespace {

/// Bit-exact arithmetic for the same picture on every machine, and chroma at full resolution within
/// the conversion.
constexpr int kScalerFlags =
    SWS_BICUBIC | SWS_ACCURATE_RND | SWS_BITEXACT | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP;
/// A contrast and a saturation of 1, in the library's 16.16 fixed point.
constexpr int kUnity = 1 << 16;

}  // namespace

PictureScaler::PictureScaler(const ScalerForm& form)
    : scaler_(sws_getContext(form.size.width, form.size.height, form.from, form.size.width,
                             form.size.height, form.to, kScalerFlags, nullptr, nullptr, nullptr)) {
    if (!scaler_) {
        throw MediaError("The FFmpeg libraries cannot convert this picture's colours (" +
                         std::string(av_get_pix_fmt_name(form.from)) + ").");
    }
    const int* coefficients = sws_getCoefficients(form.matrix);
    const int full = form.full ? 1 : 0;
    sws_setColorspaceDetails(scaler_.get(), coefficients, full, coefficients, full, 0, kUnity,
                             kUnity);
}

void PictureScaler::scale(const AVFrame& from, AVFrame& to) {
    sws_scale(scaler_.get(), from.data, from.linesize, 0, from.height, to.data, to.linesize);
}

}  // namespace ruvex::media
