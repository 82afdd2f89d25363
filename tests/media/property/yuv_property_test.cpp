// Every version of the conversion between YUV and RGB against exact fractions, over random
// pictures of many forms.

#include <algorithm>
#include <gtest/gtest.h>

#include "media/pixels/rgb_lines.h"
#include "media/pixels/yuv_pack.h"
#include "media/pixels/yuv_unpack.h"
#include "tests/media/property/yuv_case.h"

namespace ruvex::media {
namespace {

using test::Random;

/// Checks a frame of a picture against fractions.
void expectDecoded(const Form& form, const AVFrame& picture, const Frame& frame) {
    const int least = form.depth == Depth::Bits8 ? 0 : -32768;
    const int most = form.depth == Depth::Bits8 ? 255 : 32767;
    for (const Part& part : partsOf(form)) {
        const auto plane = [&](int index) {
            return [&picture, &part, index](int x, int y) {
                return codeAt(picture, index, x, part.first + y * part.step);
            };
        };
        for (int y = 0; y < part.yuv.height; ++y) {
            const int line = part.first + y * part.step;
            for (int x = 0; x < part.yuv.width; ++x) {
                for (int c = 0; c < 3; ++c) {
                    const int exact = part.yuv.component(c, x, y, plane(0), plane(1), plane(2));
                    ASSERT_EQ(componentAt(frame, c, x, line), std::clamp(exact, least, most))
                        << form.name() << ": " << x << ", " << line << ", component " << c;
                }
                const int alpha = hasAlpha(form.format)
                                      ? part.yuv.alphaComponent(codeAt(picture, 3, x, line))
                                      : form.white();
                ASSERT_EQ(componentAt(frame, 3, x, line), alpha) << form.name();
            }
        }
    }
}

/// Checks a picture of a frame against fractions.
void expectEncoded(const Form& form, const Frame& frame, const AVFrame& picture) {
    const auto channelAt = [&](int channel, int x, int line) {
        return std::clamp(componentAt(frame, channel, x, line), 0, form.white());
    };
    for (const Part& part : partsOf(form)) {
        const auto channel = [&](int index) {
            return [&channelAt, &part, index](int x, int y) {
                return channelAt(index, x, part.first + y * part.step);
            };
        };
        for (int y = 0; y < part.yuv.height; ++y) {
            const int line = part.first + y * part.step;
            for (int x = 0; x < part.yuv.width; ++x) {
                ASSERT_EQ(codeAt(picture, 0, x, line),
                          part.yuv.lumaCode(channelAt(0, x, line), channelAt(1, x, line),
                                            channelAt(2, x, line)))
                    << form.name() << ": " << x << ", " << line;
                if (hasAlpha(form.format)) {
                    ASSERT_EQ(codeAt(picture, 3, x, line),
                              part.yuv.alphaCode(channelAt(3, x, line)))
                        << form.name();
                }
            }
        }
        for (int y = 0; y < chromaSamples(part.yuv.height, part.yuv.down); ++y) {
            for (int x = 0; x < chromaSamples(part.yuv.width, part.yuv.across); ++x) {
                for (int plane = 1; plane <= 2; ++plane) {
                    ASSERT_EQ(
                        codeAt(picture, plane, x, part.first + y * part.step),
                        part.yuv.chromaCode(plane == 2, x, y, channel(0), channel(1), channel(2)))
                        << form.name() << ": plane " << plane << ", " << x << ", " << y;
                }
            }
        }
    }
}

TEST(YuvProperty, EveryVersionDecodesToTheNearestComponents) {
    for (int seed = 0; seed < test::cases(400); ++seed) {
        SCOPED_TRACE(testing::Message() << "case " << seed);
        Random random(static_cast<std::uint32_t>(seed));
        const Form form(random);
        const AvFrame picture = randomPicture(form, random);
        for (const YuvKernels* const kernels : yuvKernelVersions().all()) {
            YuvUnpacker unpacker(form.size, form.format, form.coding, form.siting, *kernels);
            Frame frame(form.size, form.depth);
            unpacker.unpack(*picture, form.interlaced, frame);
            expectDecoded(form, *picture, frame);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

// The second frame has the other depth, for which the packer prepares anew.
TEST(YuvProperty, EveryVersionEncodesToTheNearestCodes) {
    for (int seed = 0; seed < test::cases(400); ++seed) {
        SCOPED_TRACE(testing::Message() << "case " << seed);
        Random random(static_cast<std::uint32_t>(seed));
        Form form(random);
        const YuvForm packed{form.format, form.coding.matrix, form.coding.full, form.siting,
                             form.interlaced};
        for (const YuvKernels* const kernels : yuvKernelVersions().all()) {
            YuvPacker packer(form.size, packed, *kernels);
            for (const Depth depth : {Depth::Bits8, Depth::S214}) {
                form.depth = depth;
                const Frame frame = randomFrame(form, random);
                const AvFrame picture = newPicture(form.size.width, form.size.height, form.format);
                packer.pack(frame, *picture);
                expectEncoded(form, frame, *picture);
                if (testing::Test::HasFatalFailure()) return;
            }
        }
    }
}

}  // namespace
}  // namespace ruvex::media
