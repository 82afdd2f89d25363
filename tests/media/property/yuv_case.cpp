#include "tests/media/property/yuv_case.h"

#include <algorithm>
#include <array>

extern "C" {
#include <libavutil/pixdesc.h>
}

#include "media/pixels/plane_line.h"
#include "media/pixels/rgb_lines.h"

namespace ruvex::media {
namespace {

using test::Random;

/// Subsampling across and down, of 8 bits to 16 with and without alpha.
constexpr std::array kFormats = {
    AV_PIX_FMT_YUV420P,     AV_PIX_FMT_YUV422P,     AV_PIX_FMT_YUV444P,     AV_PIX_FMT_YUV440P,
    AV_PIX_FMT_YUV411P,     AV_PIX_FMT_YUV410P,     AV_PIX_FMT_YUVA420P,    AV_PIX_FMT_YUVA444P10LE,
    AV_PIX_FMT_YUV420P9LE,  AV_PIX_FMT_YUV420P10LE, AV_PIX_FMT_YUV422P10LE, AV_PIX_FMT_YUV444P10LE,
    AV_PIX_FMT_YUV420P12LE, AV_PIX_FMT_YUV444P14LE, AV_PIX_FMT_YUV420P16LE, AV_PIX_FMT_YUV444P16LE};
constexpr std::array kSitings = {AVCHROMA_LOC_LEFT, AVCHROMA_LOC_CENTER, AVCHROMA_LOC_TOPLEFT,
                                 AVCHROMA_LOC_BOTTOM};
constexpr std::array kMatrices = {AVCOL_SPC_BT709, AVCOL_SPC_FCC, AVCOL_SPC_SMPTE170M,
                                  AVCOL_SPC_SMPTE240M, AVCOL_SPC_BT2020_NCL};

/// What random samples look like.
class Samples {
public:
    Samples(Random& random, int low, int high)
        : random_(random),
          low_(low),
          high_(high),
          kind_(random.whole(0, 2)),
          flat_(random.whole(low, high)) {}

    int next() {
        switch (kind_) {
            case 0:  // One value, with a few others.
                return random_.whole(0, 15) == 0 ? random_.whole(low_, high_) : flat_;
            case 1:  // The extremes.
                return random_.whole(0, 1) == 0 ? low_ : high_;
            default:
                return random_.whole(low_, high_);
        }
    }

private:
    Random& random_;
    int low_;
    int high_;
    int kind_;
    int flat_;
};

}  // namespace

Form::Form(Random& random)
    : format(random.oneOf(kFormats)),
      coding{random.oneOf(kMatrices), random.whole(0, 1) == 0, bitsPerComponent(format)},
      siting(random.oneOf(kSitings)),
      interlaced(random.whole(0, 2) == 0),
      size{random.whole(1, 90), random.whole(1, 12)},
      depth(random.whole(0, 1) == 0 ? Depth::Bits8 : Depth::S214) {
    if (interlaced) size.height = size.height / 4 * 4 + 4;
}

std::string Form::name() const {
    return std::string(av_get_pix_fmt_name(format)) + ", matrix " + std::to_string(coding.matrix) +
           (coding.full ? ", full, " : ", limited, ") + toText(size) + ", siting " +
           std::to_string(siting) + (interlaced ? ", fields" : "") + ", white " +
           std::to_string(white());
}

int codeAt(const AVFrame& picture, int plane, int x, int y) {
    return bitsPerComponent(static_cast<AVPixelFormat>(picture.format)) == 8
               ? planeLine(picture, plane, y)[x]
               : planeLine<std::uint16_t>(picture, plane, y)[x];
}

int componentAt(const Frame& frame, int channel, int x, int line) {
    const int row = frame.height() - 1 - line;
    return frame.depth() == Depth::Bits8 ? frame.row8(row)[4 * x + channel]
                                         : frame.row16(row)[4 * x + channel];
}

std::vector<Part> partsOf(const Form& form) {
    const AVPixFmtDescriptor& format = *av_pix_fmt_desc_get(form.format);
    const int across = 1 << format.log2_chroma_w;
    const int down = 1 << format.log2_chroma_h;
    const bool is420 = across == 2 && down == 2;
    // In the middle of the luma samples, unless the siting says otherwise.
    ChromaPlaces x{across, (across - 1) * 4};
    ChromaPlaces y{down, (down - 1) * 4};
    if (is420) {
        const AVChromaLocation at = form.siting;
        if (at == AVCHROMA_LOC_LEFT || at == AVCHROMA_LOC_TOPLEFT) x.offset = 0;
        if (at == AVCHROMA_LOC_TOPLEFT) y.offset = 0;
        if (at == AVCHROMA_LOC_BOTTOM) y.offset = 8;
    }
    const FractionYuv whole{form.coding.matrix,
                            form.coding.full,
                            form.coding.bits,
                            form.white(),
                            form.size.width,
                            form.size.height,
                            x,
                            y};
    if (!is420 || !form.interlaced) return {{whole, 0, 1}};
    std::vector<Part> fields;
    for (int field = 0; field < 2; ++field) {
        FractionYuv yuv = whole;
        yuv.height /= 2;
        // The field begins `field` lines of the picture lower, and its lines are two of these.
        yuv.down.offset = (y.offset + 8 * field) / 2;
        fields.push_back({yuv, field, 2});
    }
    return fields;
}

int chromaSamples(int luma, const ChromaPlaces& places) {
    return (luma + places.step - 1) / places.step;
}

AvFrame randomPicture(const Form& form, Random& random) {
    AvFrame picture = newPicture(form.size.width, form.size.height, form.format);
    const Part part = partsOf(form).front();
    for (int plane = 0; plane < av_pix_fmt_count_planes(form.format); ++plane) {
        const bool chroma = plane == 1 || plane == 2;
        const int width =
            chroma ? chromaSamples(form.size.width, part.yuv.across) : form.size.width;
        const int height =
            chroma ? chromaSamples(form.size.height, part.yuv.down) : form.size.height;
        Samples samples(random, 0, form.top());
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int code = samples.next();
                if (form.coding.bits == 8) {
                    planeLine(*picture, plane, y)[x] = static_cast<std::uint8_t>(code);
                } else {
                    planeLine<std::uint16_t>(*picture, plane, y)[x] =
                        static_cast<std::uint16_t>(code);
                }
            }
        }
    }
    return picture;
}

Frame randomFrame(const Form& form, Random& random) {
    Frame frame(form.size, form.depth);
    const bool deep = form.depth == Depth::S214;
    const bool beyond = deep && random.whole(0, 1) == 0;
    for (int channel = 0; channel < kChannels; ++channel) {
        Samples samples(random, beyond ? -32768 : 0, beyond ? 32767 : form.white());
        for (int y = 0; y < form.size.height; ++y) {
            for (int x = 0; x < form.size.width; ++x) {
                if (deep) {
                    frame.row16(y)[4 * x + channel] = static_cast<std::int16_t>(samples.next());
                } else {
                    frame.row8(y)[4 * x + channel] = static_cast<std::uint8_t>(samples.next());
                }
            }
        }
    }
    return frame;
}

}  // namespace ruvex::media
