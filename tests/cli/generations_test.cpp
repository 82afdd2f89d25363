// Video that is rendered again and again by an effect that changes nothing.

#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "tests/cli/run_command.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::cli {
namespace {

constexpr int kWidth = 96;
constexpr int kHeight = 64;
constexpr int kGenerations = 4;

/// A kind of Y4M.
struct Kind {
    std::string name;  ///< The value of the header's C tag.
    int bits;
    int across;  ///< Luma samples to a chroma sample in a line.
    int down;    ///< Lines to a chroma line.

    std::size_t bytes(std::size_t samples) const { return bits == 8 ? samples : 2 * samples; }
    std::size_t lumaBytes() const { return bytes(std::size_t{kWidth} * kHeight); }
    std::size_t chromaSamples() const {
        return std::size_t{kWidth} * kHeight / static_cast<std::size_t>(across * down);
    }
    friend std::ostream& operator<<(std::ostream& out, const Kind& kind) {
        return out << kind.name;
    }
};

void append(std::string& bytes, const Kind& kind, double of8Bits) {
    const int value = static_cast<int>(of8Bits * (1 << (kind.bits - 8)));
    bytes += static_cast<char>(value & 255);
    if (kind.bits > 8) bytes += static_cast<char>(value >> 8);
}

/// A picture whose colours lie between black and white, also where chroma is interpolated: every
/// luma from black to white with neutral chroma above, noise below.
std::string pictureOf(const Kind& kind, bool full) {
    std::mt19937 random(9);
    const auto between = [&random](double least, double most) {
        return least + (most - least) * random() / 4294967296.0;
    };
    const double black = full ? 0 : 16;
    const double white = full ? 255 : 235;
    std::string bytes;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double ramp = (x + kWidth * (y % 16)) / (kWidth * 16.0 - 1);
            append(bytes, kind,
                   y < kHeight / 2 ? black + ramp * (white - black) : between(90, 160));
        }
    }
    for (const int seed : {1, 2}) {
        random.seed(static_cast<unsigned>(seed));
        const std::size_t samples = kind.chromaSamples();
        for (std::size_t i = 0; i < samples; ++i) {
            // The chroma filter reaches a few lines up from the noise.
            append(bytes, kind, i < samples * 3 / 4 ? 128 : between(114, 142));
        }
    }
    return bytes;
}

void writeY4m(const std::filesystem::path& file, const Kind& kind, bool full,
              const std::string& picture) {
    std::ofstream(file, std::ios::binary)
        << "YUV4MPEG2 W" << kWidth << " H" << kHeight << " F25:1 Ip A1:1 C" << kind.name
        << (full ? " XCOLORRANGE=FULL" : " XCOLORRANGE=LIMITED") << "\nFRAME\n"
        << picture;
}

/// The only picture of a Y4M file.
std::string readY4m(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::string line;
    std::getline(in, line);
    std::getline(in, line);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Renders by the preset that changes nothing.
void renderUnchanged(const std::filesystem::path& from, const std::filesystem::path& to,
                     const Arguments& more = {}) {
    Arguments arguments{"render", from.string(), "-o", to.string(), "--preset", "Good TV"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const Outcome outcome = ruvex(arguments);
    ASSERT_EQ(outcome.status, 0) << outcome.err;
}

class Generations : public testing::TestWithParam<Kind> {};

TEST_P(Generations, KeepLumaAndWith444Everything) {
    const Kind& kind = GetParam();
    const files::TempFolder folder;
    for (const bool full : {false, true}) {
        const std::string first = pictureOf(kind, full);
        writeY4m(folder.file("0.y4m"), kind, full, first);
        for (int k = 1; k <= kGenerations; ++k) {
            renderUnchanged(folder.file(std::to_string(k - 1) + ".y4m"),
                            folder.file(std::to_string(k) + ".y4m"));
            const std::string after = readY4m(folder.file(std::to_string(k) + ".y4m"));
            ASSERT_EQ(after.size(), first.size());
            EXPECT_TRUE(after.substr(0, kind.lumaBytes()) == first.substr(0, kind.lumaBytes()))
                << "luma of generation " << k << (full ? ", full range" : "");
            if (kind.across == 1) {
                EXPECT_TRUE(after == first) << "generation " << k << (full ? ", full range" : "");
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Y4m, Generations,
                         testing::Values(Kind{"420mpeg2", 8, 2, 2}, Kind{"422", 8, 2, 1},
                                         Kind{"444", 8, 1, 1}, Kind{"420p9", 9, 2, 2},
                                         Kind{"420p10", 10, 2, 2}, Kind{"422p10", 10, 2, 1},
                                         Kind{"444p10", 10, 1, 1}, Kind{"420p12", 12, 2, 2},
                                         Kind{"422p12", 12, 2, 1}, Kind{"444p12", 12, 1, 1},
                                         Kind{"444p14", 14, 1, 1}),
                         [](const auto& test) { return "C" + test.param.name; });

struct GreyFile {
    const char* name;
    const char* codec;
    int scale;  ///< Of the codes that the ffmpeg command decodes, which has 12 bits for ProRes.
};

class PlainGrey : public testing::TestWithParam<GreyFile> {};

// Through video codecs that lose something a plain area keeps its code: 10-bit luma of black, of
// white and in the middle.
TEST_P(PlainGrey, KeepsItsCodeThroughFourGenerations) {
    const files::TempFolder folder;
    const Kind kind{"422p10", 10, 2, 1};
    for (const int luma : {64, 502, 512, 520, 940}) {
        std::string picture;
        for (int i = 0; i < kWidth * kHeight; ++i) append(picture, kind, luma / 4.0);
        for (int i = 0; i < kWidth * kHeight; ++i) append(picture, kind, 128);
        writeY4m(folder.file("0.y4m"), kind, false, picture);
        std::filesystem::path before = folder.file("0.y4m");
        for (int k = 1; k <= kGenerations; ++k) {
            const auto after = folder.file(std::to_string(k) + GetParam().name);
            renderUnchanged(before, after, {"--codec", GetParam().codec});
            before = after;
        }
        media::runFfmpeg("-i " + media::quoted(before) + " -vf extractplanes=y -f rawvideo",
                         folder.file("luma"));
        std::ifstream in(folder.file("luma"), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        ASSERT_EQ(bytes.size(), kind.lumaBytes());
        for (std::size_t i = 0; i < bytes.size(); i += 2) {
            const int code = static_cast<unsigned char>(bytes[i]) +
                             256 * static_cast<unsigned char>(bytes[i + 1]);
            ASSERT_EQ(code, luma * GetParam().scale) << GetParam().codec << ", pixel " << i / 2;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Codecs, PlainGrey,
                         testing::Values(GreyFile{".mov", "prores", 4},
                                         GreyFile{".mp4", "h265", 1}),
                         [](const auto& test) { return std::string(test.param.codec); });

}  // namespace
}  // namespace ruvex::cli
