// The ways between RGB and YUV are exact to the nearest code value.

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <random>

#include "media/av_library.h"
#include "media/frame_reader.h"
#include "media/frame_writer.h"
#include "media/pixels/plane_line.h"
#include "media/pixels/yuv_convert.h"
#include "tests/media/exact_yuv.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::media {
namespace {

constexpr int kDepths[] = {8, 9, 10, 12, 14, 16};

int whiteOf(Depth depth) {
    return depth == Depth::Bits8 ? kWhite8 : kWhiteS214;
}

/// The depth of the frames for YUV of so many bits.
Depth frameDepth(int bits) {
    return bits == 8 ? Depth::Bits8 : Depth::S214;
}

int component(const Frame& frame, int x, int line, int channel) {
    const int row = chainRowOfLine(line, frame.height());
    const int at = x * kChannels + channel;
    return frame.depth() == Depth::Bits8 ? frame.row8(row)[at] : frame.row16(row)[at];
}

void setComponent(Frame& frame, int x, int line, int channel, int value) {
    const int row = chainRowOfLine(line, frame.height());
    const int at = x * kChannels + channel;
    if (frame.depth() == Depth::Bits8) {
        frame.row8(row)[at] = static_cast<std::uint8_t>(value);
    } else {
        frame.row16(row)[at] = static_cast<std::int16_t>(value);
    }
}

Triple colourAt(const Frame& frame, int x, int line) {
    Triple rgb{};
    for (int c = 0; c < 3; ++c) {
        rgb[static_cast<std::size_t>(c)] =
            static_cast<double>(component(frame, x, line, c)) / whiteOf(frame.depth());
    }
    return rgb;
}

/// The planes of one picture of a Y4M file, with their sizes.
struct Planes {
    std::vector<std::vector<std::uint16_t>> plane;
    std::vector<FrameSize> size;

    int at(std::size_t p, int x, int y) const {
        return plane[p][static_cast<std::size_t>(y) * static_cast<std::size_t>(size[p].width) +
                        static_cast<std::size_t>(x)];
    }
};

Planes readPlanes(const std::filesystem::path& file, FrameSize size, Chroma chroma, int bits) {
    std::ifstream in(file, std::ios::binary);
    std::string line;
    std::getline(in, line);
    std::getline(in, line);
    Planes planes;
    for (int p = 0; p < 3; ++p) {
        FrameSize part = size;
        if (p > 0 && chroma != Chroma::C444) part.width = (size.width + 1) / 2;
        if (p > 0 && chroma == Chroma::C420) part.height = (size.height + 1) / 2;
        const std::size_t count =
            static_cast<std::size_t>(part.width) * static_cast<std::size_t>(part.height);
        std::vector<std::uint8_t> bytes(bits == 8 ? count : 2 * count);
        in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        std::vector<std::uint16_t> values(bytes.begin(), bytes.begin() + (bits == 8 ? count : 0));
        for (std::size_t i = 0; bits > 8 && i < count; ++i) {
            values.push_back(static_cast<std::uint16_t>(bytes[2 * i] + 256 * bytes[2 * i + 1]));
        }
        planes.plane.push_back(std::move(values));
        planes.size.push_back(part);
    }
    return planes;
}

/// The YUV picture that is written for a frame.
Planes written(const Frame& frame, const ExactYuv& yuv, Chroma chroma,
               FieldOrder fields = FieldOrder::Progressive) {
    const files::TempFolder folder;
    WriteOptions options{.size = frame.size(), .depth = frame.depth()};
    options.bits = yuv.bits;
    options.chroma = chroma;
    options.colour.matrix = yuv.matrix;
    options.colour.full = yuv.full;
    options.fields = fields;
    const auto writer = openWriter(folder.file("a.y4m"), options);
    writer->write(0, frame);
    writer->finish();
    return readPlanes(folder.file("a.y4m"), frame.size(), chroma, yuv.bits);
}

void forAllCodings(const std::function<void(const ExactYuv&)>& test) {
    for (const int matrix : kMatrices) {
        for (const bool full : {false, true}) {
            for (const int bits : kDepths) {
                test({matrix, full, bits});
            }
        }
    }
}

/// Values of a component: black, white, their neighbours, some between, and for S2.14 the extremes.
std::vector<int> valuesOf(Depth depth) {
    const int white = whiteOf(depth);
    std::vector<int> values;
    for (int i = 0; i <= 30; ++i) values.push_back(i * white / 30);
    for (const int value : {1, 2, white / 2 - 1, white / 2 + 1, white - 2, white - 1}) {
        values.push_back(value);
    }
    if (depth == Depth::S214) {
        for (const int value : {-32768, -1000, -1, white + 1, white + 1500, 32767}) {
            values.push_back(value);
        }
    }
    return values;
}

/// Every combination of these values, one for each pixel.
Frame gridFrame(Depth depth) {
    const std::vector<int> values = valuesOf(depth);
    const int n = static_cast<int>(values.size());
    Frame frame({n * n, n}, depth);
    for (int line = 0; line < n; ++line) {
        for (int x = 0; x < n * n; ++x) {
            const int index[] = {line, x / n, x % n, n - 1};
            for (int c = 0; c < kChannels; ++c) {
                setComponent(frame, x, line, c, values[static_cast<std::size_t>(index[c])]);
            }
        }
    }
    return frame;
}

TEST(ExactYuv, EveryPixelBecomesTheNearestCodes) {
    forAllCodings([](const ExactYuv& yuv) {
        const Frame frame = gridFrame(frameDepth(yuv.bits));
        const Planes planes = written(frame, yuv, Chroma::C444);
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x) {
                const Triple exact = yuv.codesOf(colourAt(frame, x, y));
                for (std::size_t p = 0; p < 3; ++p) {
                    ASSERT_TRUE(isNearest(planes.at(p, x, y), exact[p], yuv.top()))
                        << yuv.name() << ": " << planes.at(p, x, y) << " is not the nearest to "
                        << exact[p] << " in plane " << p;
                }
            }
        }
    });
}

// All 2^24 colours.
TEST(ExactYuv, EveryColourOf8BitsBecomesTheNearestCodes) {
    constexpr FrameSize kSize{4096, 4096};
    Frame frame(kSize, Depth::Bits8);
    for (int i = 0; i < 1 << 24; ++i) {
        for (int c = 0; c < 3; ++c) {
            setComponent(frame, i % 4096, i / 4096, c, i >> 8 * c & 255);
        }
    }
    const ExactYuv yuv{1, false, 8};
    const Planes planes = written(frame, yuv, Chroma::C444);
    int wrong = 0;
    for (int i = 0; i < 1 << 24; ++i) {
        const Triple exact = yuv.codesOf(colourAt(frame, i % 4096, i / 4096));
        for (std::size_t p = 0; p < 3; ++p) {
            wrong += isNearest(planes.at(p, i % 4096, i / 4096), exact[p], yuv.top()) ? 0 : 1;
        }
    }
    EXPECT_EQ(wrong, 0);
}

// Blocks of one colour, larger than the chroma filter; the pixel in the middle of each.
TEST(ExactYuv, AreasOfOneColourBecomeTheNearestCodesWithAnyChroma) {
    constexpr int kBlock = 24;
    constexpr int kSteps = 4;
    constexpr int kAcross = (kSteps + 1) * (kSteps + 1);
    forAllCodings([](const ExactYuv& yuv) {
        Frame frame({kAcross * kBlock, (kSteps + 1) * kBlock}, frameDepth(yuv.bits));
        const int white = whiteOf(frame.depth());
        for (int y = 0; y < frame.height(); ++y) {
            for (int x = 0; x < frame.width(); ++x) {
                const int block = x / kBlock;
                const int steps[] = {y / kBlock, block / (kSteps + 1), block % (kSteps + 1)};
                for (int c = 0; c < 3; ++c) {
                    setComponent(frame, x, y, c, steps[c] * white / kSteps);
                }
            }
        }
        for (const Chroma chroma : {Chroma::C422, Chroma::C420}) {
            const Planes planes = written(frame, yuv, chroma);
            for (int y = kBlock / 2; y < frame.height(); y += kBlock) {
                for (int x = kBlock / 2; x < frame.width(); x += kBlock) {
                    const Triple exact = yuv.codesOf(colourAt(frame, x, y));
                    const int down = chroma == Chroma::C420 ? 2 : 1;
                    for (std::size_t p = 0; p < 3; ++p) {
                        const int code =
                            p == 0 ? planes.at(0, x, y) : planes.at(p, x / 2, y / down);
                        ASSERT_TRUE(isNearest(code, exact[p], yuv.top()))
                            << yuv.name() << ": " << code << " is not the nearest to " << exact[p];
                    }
                }
            }
        }
    });
}

TEST(ExactYuv, LumaOfNoiseIsTheNearestWithAnyChroma) {
    for (const int bits : kDepths) {
        const ExactYuv yuv{9, false, bits};
        const Frame frame = noiseFrame({37, 28}, frameDepth(bits), 5, true);
        for (const Chroma chroma : {Chroma::C420, Chroma::C422, Chroma::C444}) {
            for (const FieldOrder fields : {FieldOrder::Progressive, FieldOrder::TopFirst}) {
                const Planes planes = written(frame, yuv, chroma, fields);
                for (int y = 0; y < frame.height(); ++y) {
                    for (int x = 0; x < frame.width(); ++x) {
                        const double exact = yuv.codesOf(colourAt(frame, x, y))[0];
                        ASSERT_TRUE(isNearest(planes.at(0, x, y), exact, yuv.top()));
                    }
                }
            }
        }
    }
}

/// A 4:4:4 picture of the codes.
AvFrame pictureOf(const ExactYuv& yuv, FrameSize size,
                  const std::function<int(std::size_t plane, int x, int y)>& code) {
    const AVPixelFormat formats[] = {AV_PIX_FMT_YUV444P9LE,  AV_PIX_FMT_YUV444P10LE,
                                     AV_PIX_FMT_YUV444P12LE, AV_PIX_FMT_YUV444P14LE,
                                     AV_PIX_FMT_YUV444P16LE, AV_PIX_FMT_YUV444P};
    const auto fits = [&](AVPixelFormat format) { return bitsPerComponent(format) == yuv.bits; };
    AvFrame picture = newPicture(size.width, size.height, *std::ranges::find_if(formats, fits));
    picture->colorspace = static_cast<AVColorSpace>(yuv.matrix);
    picture->color_range = yuv.full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    for (std::size_t p = 0; p < 3; ++p) {
        for (int y = 0; y < size.height; ++y) {
            for (int x = 0; x < size.width; ++x) {
                const int value = code(p, x, y);
                if (yuv.bits == 8) {
                    planeLine(*picture, static_cast<int>(p), y)[x] =
                        static_cast<std::uint8_t>(value);
                } else {
                    planeLine<std::uint16_t>(*picture, static_cast<int>(p), y)[x] =
                        static_cast<std::uint16_t>(value);
                }
            }
        }
    }
    return picture;
}

/// Whether each component of the frame is the nearest to the exact colour of codes(x, y).
testing::AssertionResult isExact(const Frame& frame, const ExactYuv& yuv,
                                 const std::function<Triple(int x, int y)>& codes) {
    const bool deep = frame.depth() == Depth::S214;
    const int white = whiteOf(frame.depth());
    for (int y = 0; y < frame.height(); ++y) {
        for (int x = 0; x < frame.width(); ++x) {
            const Triple exact = yuv.rgbOf(codes(x, y));
            for (std::size_t c = 0; c < 3; ++c) {
                const int got = component(frame, x, y, static_cast<int>(c));
                const double wanted =
                    std::clamp(exact[c] * white, deep ? -32768.0 : 0.0, deep ? 32767.0 : 255.0);
                if (std::abs(got - wanted) > 0.5 + 1e-6) {
                    return testing::AssertionFailure()
                           << yuv.name() << ": " << got << " is not the nearest to " << wanted;
                }
            }
        }
    }
    return testing::AssertionSuccess();
}

Frame frameOf(const AVFrame& picture) {
    Frame frame;
    PictureToFrame(picture, "a").convert(picture, frame);
    return frame;
}

// All 2^24 codes.
TEST(ExactRgb, EveryCodeOf8BitsBecomesTheNearestColour) {
    const ExactYuv yuv{1, false, 8};
    AvFrame picture = pictureOf(yuv, {256, 256}, [](std::size_t p, int x, int y) {
        return p == 0 ? 0 : p == 1 ? x : y;
    });
    PictureToFrame convert(*picture, "a");
    Frame frame;
    for (int luma = 0; luma < 256; ++luma) {
        for (int y = 0; y < 256; ++y) {
            std::fill_n(planeLine(*picture, 0, y), 256, static_cast<std::uint8_t>(luma));
        }
        convert.convert(*picture, frame);
        ASSERT_TRUE(isExact(frame, yuv, [luma](int x, int y) {
            return Triple{static_cast<double>(luma), static_cast<double>(x),
                          static_cast<double>(y)};
        }));
    }
}

// Black, white, the extremes and values between, in every combination.
TEST(ExactRgb, CodesBecomeTheNearestColours) {
    forAllCodings([](const ExactYuv& yuv) {
        constexpr int kSteps = 32;
        const auto code = [&](std::size_t p, int x, int y) {
            const int step = p == 0 ? y : p == 1 ? x / (kSteps + 1) : x % (kSteps + 1);
            return static_cast<int>(yuv.top()) * step / kSteps;
        };
        const FrameSize size{(kSteps + 1) * (kSteps + 1), kSteps + 1};
        const AvFrame picture = pictureOf(yuv, size, code);
        ASSERT_TRUE(isExact(frameOf(*picture), yuv, [&](int x, int y) {
            return Triple{static_cast<double>(code(0, x, y)), static_cast<double>(code(1, x, y)),
                          static_cast<double>(code(2, x, y))};
        }));
    });
}

/// Random codes of colours between black and white.
std::vector<std::array<int, 3>> codesInGamut(const ExactYuv& yuv, int count) {
    std::mt19937 random(static_cast<unsigned>(yuv.bits));
    std::vector<std::array<int, 3>> all;
    while (static_cast<int>(all.size()) < count) {
        std::array<int, 3> codes{};
        for (int& code : codes) {
            code = static_cast<int>(random() % (1U << static_cast<unsigned>(yuv.bits)));
        }
        if (isInGamut(yuv.rgbOf({static_cast<double>(codes[0]), static_cast<double>(codes[1]),
                                 static_cast<double>(codes[2])}))) {
            all.push_back(codes);
        }
    }
    return all;
}

// Read as RGB and written again. A frame holds 16384 steps from black to white, fewer than 16 bits
// have; from then on nothing changes.
TEST(Generations, KeepEveryCodeOfColoursBetweenBlackAndWhite) {
    constexpr FrameSize kSize{100, 50};
    forAllCodings([&](const ExactYuv& yuv) {
        const auto codes = codesInGamut(yuv, kSize.width * kSize.height);
        Planes before;
        for (int generation = 0; generation < 4; ++generation) {
            const AvFrame picture = pictureOf(yuv, kSize, [&](std::size_t p, int x, int y) {
                const int pixel = y * kSize.width + x;
                return generation > 0 ? before.at(p, x, y)
                                      : codes[static_cast<std::size_t>(pixel)][p];
            });
            const Planes after = written(frameOf(*picture), yuv, Chroma::C444);
            for (int pixel = 0; pixel < kSize.width * kSize.height; ++pixel) {
                const int x = pixel % kSize.width;
                const int y = pixel / kSize.width;
                for (std::size_t p = 0; p < 3; ++p) {
                    const int was = generation > 0 ? before.at(p, x, y)
                                                   : codes[static_cast<std::size_t>(pixel)][p];
                    const int change = std::abs(after.at(p, x, y) - was);
                    ASSERT_LE(change, generation == 0 && yuv.bits == 16 ? 3 : 0)
                        << yuv.name() << ", generation " << generation << ", plane " << p;
                }
            }
            before = after;
        }
    });
}

}  // namespace
}  // namespace ruvex::media
