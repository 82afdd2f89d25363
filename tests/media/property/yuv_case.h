// Random forms of YUV pictures, with pictures and frames to convert.

#pragma once

#include <string>
#include <vector>

#include "media/av_library.h"
#include "media/frame.h"
#include "media/pixels/yuv_coding.h"
#include "tests/imaging/support/random.h"
#include "tests/media/twins/fraction_yuv.h"

namespace ruvex::media {

/// A form of pictures and frames.
struct Form {
    AVPixelFormat format;
    YuvCoding coding;
    AVChromaLocation siting;
    bool interlaced;
    FrameSize size;
    Depth depth;

    explicit Form(test::Random& random);

    int white() const { return depth == Depth::Bits8 ? 255 : 16384; }
    int top() const { return (1 << coding.bits) - 1; }
    std::string name() const;
};

/// The fraction form of a picture, or of a field of it, which has every second line from `first`.
struct Part {
    FractionYuv yuv;
    int first;
    int step;
};

std::vector<Part> partsOf(const Form& form);

int chromaSamples(int luma, const ChromaPlaces& places);

AvFrame randomPicture(const Form& form, test::Random& random);
/// S2.14 components may lie beyond black and white.
Frame randomFrame(const Form& form, test::Random& random);

/// A code value of a plane; lines count from the top.
int codeAt(const AVFrame& picture, int plane, int x, int y);
int componentAt(const Frame& frame, int channel, int x, int line);

}  // namespace ruvex::media
