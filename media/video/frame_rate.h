// The constant frame rate of a video, chosen by the times of its pictures.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "media/rational.h"

namespace ruvex::media {

/// When the pictures of a video are shown.
struct PictureTimes {
    std::span<const std::int64_t> times;  ///< Ascending and distinct, in units; at least one.
    Rational unit;                        ///< The container's time base: seconds in one unit.
};

struct FrameRate {
    Rational rate;  ///< Frames a second.
    /// False: picture k is frame k. True: the pictures have to be moved, repeated or left out to
    /// have this rate.
    bool uneven = false;
};

/// The frame of each picture at `rate`, counted from the first picture's: the one nearest to the
/// picture's time. Where that one is taken it is the next, unless that is more than three quarters
/// of a frame away; then two pictures share a frame.
std::vector<std::int64_t> placesOf(const PictureTimes& pictures, const Rational& rate);

/// A rate at which no picture is lost, by the first rule that gives one:
/// - a rate at which picture k is frame k, as far as the time base can express it: one of
///   `declared`, which are the rates that the container names, or else any rate;
/// - the same at a usual rate (23.976, 25, 30, ...) if no picture moves by more than an eighth of a
///   frame from the middle of all deviations;
/// - the grid on which all times lie, up to 120 frames a second;
/// - a usual rate at which picture k is frame k although the pictures move by up to half a frame,
///   or one that is so near to the mean rate that only drift moves pictures out of their frames;
/// - the slowest usual rate, up to 120, at which no two pictures have the same nearest frame.
/// Where there is no such rate, it is 120, and some pictures share a frame.
FrameRate chooseFrameRate(const PictureTimes& pictures, const std::vector<Rational>& declared);

}  // namespace ruvex::media
