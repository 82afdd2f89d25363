#include "media/pixels/rgb_lines.h"

extern "C" {
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "media/pixels/plane_line.h"

namespace ruvex::media {
namespace {

/// The order of lines in memory.
enum class Lines { Tight, Padded, BottomFirst };

/// A picture of random bytes, the palette included, over memory of its own.
class RandomPicture {
public:
    RandomPicture(AVPixelFormat format, FrameSize size, Lines lines, unsigned seed) {
        picture_.format = format;
        picture_.width = size.width;
        picture_.height = size.height;
        av_image_fill_linesizes(picture_.linesize, format, size.width);
        std::ptrdiff_t offsets[4] = {};
        std::ptrdiff_t end = 0;
        for (int plane = 0; plane < av_pix_fmt_count_planes(format); ++plane) {
            int& pitch = picture_.linesize[plane];
            pitch += lines == Lines::Padded ? 6 : 0;
            offsets[plane] = end;
            end += std::ptrdiff_t{pitch} * size.height;
            if (lines == Lines::BottomFirst) {
                offsets[plane] = end - pitch;
                pitch = -pitch;
            }
        }
        bytes_.resize(static_cast<std::size_t>(end));
        std::mt19937 random(seed);
        std::generate(bytes_.begin(), bytes_.end(), std::ref(random));
        std::generate(palette_.begin(), palette_.end(), std::ref(random));
        for (int plane = 0; plane < av_pix_fmt_count_planes(format); ++plane) {
            picture_.data[plane] = bytes_.data() + offsets[plane];
        }
        if ((av_pix_fmt_desc_get(format)->flags & AV_PIX_FMT_FLAG_PAL) != 0) {
            picture_.data[1] = reinterpret_cast<std::uint8_t*>(palette_.data());
        }
    }
    RandomPicture(const RandomPicture&) = delete;
    RandomPicture& operator=(const RandomPicture&) = delete;

    const AVFrame& picture() const { return picture_; }

private:
    AVFrame picture_{};
    std::vector<std::uint8_t> bytes_;
    std::vector<std::uint32_t> palette_ = std::vector<std::uint32_t>(256);
};

/// One value of a picture by the library's own function for any component. A palette's components 0
/// to 3 are red, green, blue and alpha.
int numberAt(const AVFrame& picture, int component, int x, int y) {
    const AVPixFmtDescriptor& format =
        *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(picture.format));
    const std::uint8_t* data[4] = {picture.data[0], picture.data[1], picture.data[2],
                                   picture.data[3]};
    std::uint16_t number = 0;
    const bool palette = (format.flags & AV_PIX_FMT_FLAG_PAL) != 0;
    av_read_image_line2(&number, data, picture.linesize, &format, x, y, palette ? 0 : component, 1,
                        0, sizeof number);
    if (!palette) {
        return number;
    }
    const auto* entries = reinterpret_cast<const std::uint32_t*>(picture.data[1]);
    return static_cast<int>(entries[number] >> (component == 3 ? 24 : 16 - 8 * component) & 0xFF);
}

/// The expected value of a channel of the frame.
long expectedAt(const AVFrame& picture, int channel, int x, int y, Depth depth) {
    const AVPixFmtDescriptor& format =
        *av_pix_fmt_desc_get(static_cast<AVPixelFormat>(picture.format));
    const bool palette = (format.flags & AV_PIX_FMT_FLAG_PAL) != 0;
    const long white = depth == Depth::S214 ? kWhiteS214 : 255;
    int component = channel;
    if (channel == 3) {
        if (!hasAlpha(static_cast<AVPixelFormat>(picture.format))) {
            return white;
        }
        component = palette ? 3 : format.nb_components - 1;
    } else if (!palette && format.nb_components <= 2) {
        component = 0;
    }
    const long top = palette ? 255 : (1L << format.comp[component].depth) - 1;
    // Rounded to the nearest; `top` is odd, so that there are no ties.
    return (numberAt(picture, component, x, y) * white * 2 + top) / (top * 2);
}

std::vector<AVPixelFormat> rgbAndGreyFormats() {
    std::vector<AVPixelFormat> formats;
    const AVPixFmtDescriptor* description = nullptr;
    while ((description = av_pix_fmt_desc_next(description)) != nullptr) {
        const AVPixelFormat format = av_pix_fmt_desc_get_id(description);
        if (isRgbOrGrey(format)) {
            formats.push_back(format);
        }
    }
    return formats;
}

void expectUnpacked(const AVFrame& picture) {
    const auto format = static_cast<AVPixelFormat>(picture.format);
    const Depth depth = bitsPerComponent(format) > 8 ? Depth::S214 : Depth::Bits8;
    Frame frame({picture.width, picture.height}, depth);
    unpackRgb(picture, frame);
    int wrong = 0;
    for (int y = 0; y < picture.height; ++y) {
        const int row = picture.height - 1 - y;
        for (int i = 0; i < picture.width * kChannels; ++i) {
            const long got = depth == Depth::S214 ? frame.row16(row)[i] : frame.row8(row)[i];
            const long expected = expectedAt(picture, i % kChannels, i / kChannels, y, depth);
            wrong += got != expected ? 1 : 0;
        }
    }
    EXPECT_EQ(wrong, 0) << av_get_pix_fmt_name(format);
}

TEST(RgbLines, EveryFormatIsUnpackedAsTheLibraryReadsIt) {
    unsigned seed = 1;
    for (const AVPixelFormat format : rgbAndGreyFormats()) {
        for (const FrameSize size : {FrameSize{1, 1}, FrameSize{37, 5}, FrameSize{64, 3}}) {
            for (const Lines lines : {Lines::Tight, Lines::Padded, Lines::BottomFirst}) {
                expectUnpacked(RandomPicture(format, size, lines, seed++).picture());
            }
        }
    }
}

/// Whether ComponentLine can read all components, as bytes or as words.
bool isPlaced(AVPixelFormat format,
              bool (*test)(const AVPixFmtDescriptor&, const AVComponentDescriptor&)) {
    const AVPixFmtDescriptor& description = *av_pix_fmt_desc_get(format);
    return std::all_of(
        description.comp, description.comp + description.nb_components,
        [&](const AVComponentDescriptor& place) { return test(description, place); });
}

TEST(RgbLines, TheUsualFormatsAreReadWhereTheyStand) {
    for (const AVPixelFormat format :
         {AV_PIX_FMT_RGBA, AV_PIX_FMT_BGRA, AV_PIX_FMT_ARGB, AV_PIX_FMT_BGR0, AV_PIX_FMT_RGB24,
          AV_PIX_FMT_BGR24, AV_PIX_FMT_GBRP, AV_PIX_FMT_GBRAP, AV_PIX_FMT_GRAY8, AV_PIX_FMT_YA8}) {
        EXPECT_TRUE(isPlaced(format, isByte)) << av_get_pix_fmt_name(format);
    }
    for (const AVPixelFormat format : {AV_PIX_FMT_RGBA64, AV_PIX_FMT_RGB48, AV_PIX_FMT_GBRP10,
                                       AV_PIX_FMT_GBRAP16, AV_PIX_FMT_GRAY16, AV_PIX_FMT_X2RGB10}) {
        EXPECT_TRUE(isPlaced(format, isInWord)) << av_get_pix_fmt_name(format);
    }
    for (const AVPixelFormat format :
         {AV_PIX_FMT_RGB565BE, AV_PIX_FMT_RGB8, AV_PIX_FMT_MONOBLACK}) {
        EXPECT_FALSE(isPlaced(format, isByte)) << av_get_pix_fmt_name(format);
        EXPECT_FALSE(isPlaced(format, isInWord)) << av_get_pix_fmt_name(format);
    }
}

}  // namespace
}  // namespace ruvex::media
