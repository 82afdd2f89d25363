// Lines of RGB in the usual layouts, converted in loops that the compiler vectorises.

#pragma once

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include "media/frame.h"

namespace ruvex::media {

/// Converts line y of an RGB picture, with or without alpha, into the frame's chain row, at the
/// frame's depth. Gives false, and does nothing, if the layout is not a usual one: pixels of four
/// bytes; four 16-bit words in the order of a frame; or a plane for each component, of 8 bits for
/// an 8-bit frame and of 9 to 16 bits for an S2.14 frame.
bool unpackUsualLine(const AVFrame& picture, const AVPixFmtDescriptor& format, int y, int row,
                     Frame& frame);

/// Converts S2.14 pixels into 16-bit ones, clamped to black and white; `swapped` for the other byte
/// order than the processor's.
void packWords(const std::int16_t* components, int width, bool swapped, std::uint16_t* line);

/// Converts 8-bit pixels into ones with blue before red.
void swapRedAndBlue(const std::uint8_t* from, int width, std::uint8_t* to);

}  // namespace ruvex::media
