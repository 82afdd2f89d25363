// Before and after in one picture.

#pragma once

#include "media/frame.h"

namespace ruvex::jobs {

struct Comparison {
    enum class Kind {
        SideBySide,  ///< All of both, before on the left.
        Split,       ///< One picture: before up to a line, after from there on.
    };
    Kind kind = Kind::SideBySide;
    double splitAt = 0.5;  ///< Position of the line as a fraction of the width, 0 to 1.

    friend bool operator==(const Comparison&, const Comparison&) = default;
};

/// The size of the picture that shows two of `size`.
media::FrameSize comparedSize(const Comparison& comparison, media::FrameSize size);

/// Pixels of the line between the halves of a picture of `width`: a 720th of it, rounded, and at
/// least one.
int dividerWidth(int width);

/// Both into `result`, which has the compared size; all of one depth. The line is white and opaque
/// and lies over both halves, as far as the picture reaches.
void compareFrames(const Comparison& comparison, const media::Frame& before,
                   const media::Frame& after, media::Frame& result);

}  // namespace ruvex::jobs
