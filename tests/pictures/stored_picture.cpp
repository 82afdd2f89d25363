#include "tests/pictures/stored_picture.h"

#include <algorithm>
#include <cstdlib>

#include "media/media_error.h"
#include "media/stills/still_file.h"

namespace ruvex::test {
namespace {

using media::Depth;
using media::Frame;

constexpr int kColours = 3;

template <class P>
constexpr int kPanelRows = sizeof(P) == 4 ? 1 : 2;

// Small values of either sign have small codes.
int codeOf(int value) {
    return value >= 0 ? 2 * value : -2 * value - 1;
}
int valueOf(int code) {
    return code % 2 == 0 ? code / 2 : -(code + 1) / 2;
}

template <class P>
class Panels {
public:
    Panels(Frame& frame, int width, int height) : frame_(frame), width_(width), height_(height) {}

    void write(int x, int y, const P& pixel) {
        std::uint8_t bytes[4];
        if constexpr (sizeof(P) == 4) {
            put(x, y, pixel.c);
        } else {
            for (int k = 0; k < 4; ++k)
                bytes[k] = static_cast<std::uint8_t>(codeOf(pixel.c[k]) >> 8);
            put(x, y + height_, bytes);
            for (int k = 0; k < 4; ++k) bytes[k] = static_cast<std::uint8_t>(codeOf(pixel.c[k]));
            put(x, y, bytes);
        }
    }
    P read(int x, int y) const {
        P pixel;
        for (int k = 0; k < 4; ++k) {
            int value = get(x, y, k);
            if constexpr (sizeof(P) != 4) value = valueOf(get(x, y + height_, k) << 8 | value);
            pixel.c[k] = static_cast<typename P::Component>(value);
        }
        return pixel;
    }

private:
    std::uint8_t* at(int x, int y) const { return frame_.row8(y) + x * media::kChannels; }
    template <class Byte>
    void put(int x, int y, const Byte& bytes) {
        std::uint8_t* colour = at(x, y);
        std::uint8_t* alpha = at(x + width_, y);
        for (int k = 0; k < kColours; ++k) {
            colour[k] = bytes[k];
            alpha[k] = bytes[3];
        }
        colour[3] = alpha[3] = 255;
    }
    int get(int x, int y, int k) const { return k < kColours ? at(x, y)[k] : at(x + width_, y)[0]; }

    Frame& frame_;
    int width_, height_;
};

template <class P>
int largestDifference(const P& a, const P& b) {
    int largest = 0;
    for (int k = 0; k < 4; ++k) largest = std::max(largest, std::abs(int{a.c[k]} - int{b.c[k]}));
    return largest;
}

}  // namespace

template <class P>
void writeStored(const std::filesystem::path& file, const Picture<P>& picture) {
    Frame frame({2 * picture.width, kPanelRows<P> * picture.height}, Depth::Bits8);
    Panels<P> panels(frame, picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) panels.write(x, y, picture.at(x, y));
    }
    media::writeStill(file, frame);
}

template <class P>
Picture<P> readStored(const std::filesystem::path& file) {
    Frame frame = media::readStill(file).frame;
    if (frame.depth() != Depth::Bits8 || frame.width() % 2 != 0 ||
        frame.height() % kPanelRows<P> != 0) {
        throw media::MediaError(file.string() + " has not the panels of a stored picture");
    }
    Picture<P> picture{frame.width() / 2, frame.height() / kPanelRows<P>, {}};
    const Panels<P> panels(frame, picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) picture.pixels.push_back(panels.read(x, y));
    }
    return picture;
}

std::string PictureDifference::text() const {
    return std::to_string(pixels) + " pixels differ, the first at " + std::to_string(firstX) +
           ", " + std::to_string(firstY) + " from the bottom left; the largest difference is " +
           std::to_string(largest);
}

template <class P>
std::optional<PictureDifference> differenceOf(const Picture<P>& got, const Picture<P>& stored) {
    if (got.width != stored.width || got.height != stored.height) {
        return PictureDifference{.pixels = got.width * got.height};
    }
    PictureDifference difference;
    for (int y = got.height - 1; y >= 0; --y) {
        for (int x = got.width - 1; x >= 0; --x) {
            const int size = largestDifference(got.at(x, y), stored.at(x, y));
            if (size == 0) continue;
            ++difference.pixels;
            difference.firstX = x;
            difference.firstY = y;
            difference.largest = std::max(difference.largest, size);
        }
    }
    if (difference.pixels == 0) return std::nullopt;
    return difference;
}

template <class P>
Picture<P> differencePicture(const Picture<P>& got, const Picture<P>& stored) {
    constexpr int kWhite = sizeof(P) == 4 ? 255 : 32767;
    Picture<P> picture = got;
    const auto difference = differenceOf(got, stored);
    if (!difference || difference->largest == 0) return picture;
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const P& a = got.pixels[i];
        const P& b = stored.pixels[i];
        for (int k = 0; k < 4; ++k) {
            const int size = std::abs(int{a.c[k]} - int{b.c[k]});
            picture.pixels[i].c[k] =
                static_cast<typename P::Component>(size * kWhite / difference->largest);
        }
    }
    return picture;
}

template void writeStored(const std::filesystem::path&, const Picture<Rgba8>&);
template void writeStored(const std::filesystem::path&, const Picture<RgbaS214>&);
template Picture<Rgba8> readStored(const std::filesystem::path&);
template Picture<RgbaS214> readStored(const std::filesystem::path&);
template std::optional<PictureDifference> differenceOf(const Picture<Rgba8>&,
                                                       const Picture<Rgba8>&);
template std::optional<PictureDifference> differenceOf(const Picture<RgbaS214>&,
                                                       const Picture<RgbaS214>&);
template Picture<Rgba8> differencePicture(const Picture<Rgba8>&, const Picture<Rgba8>&);
template Picture<RgbaS214> differencePicture(const Picture<RgbaS214>&, const Picture<RgbaS214>&);

}  // namespace ruvex::test
