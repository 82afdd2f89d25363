// The looks as released, written down on their own so that no change of the table goes unseen: a
// preset is a promise about a picture. A line here changes only when breaking it is meant.

#pragma once

namespace ruvex {

inline constexpr const char* kReleasedPresetNames[] = {
    "Good TV",         "Bad Colour TV", "Bad B&W TV",  "Offset Guns",
    "Security Camera", "Aerial SpyCam", "NightVision", "Cable Out"};

/// A row of the table, in writing order; "-" leaves the parameter as it is.
struct ReleasedPresetRow {
    const char* label;
    const char* values[8];
};

// clang-format off
inline constexpr ReleasedPresetRow kReleasedPresets[] = {
    {"TV Type", {"0", "0", "1", "0", "1", "2", "2", "0"}},
    {"Seed", {"7", "7", "20", "7", "30", "30", "30", "7"}},
    {"TV Contrast", {"0", "0", "0", "0", "15", "25", "10", "0"}},
    {"TV Brightness", {"0", "0", "0", "0", "25", "20", "10", "0"}},
    {"TV Colour", {"100", "100", "100", "100", "100", "100", "100", "100"}},
    {"TV Brightness Red", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"TV Brightness Green", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"TV Brightness Blue", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Tint Colour R", {"-", "-", "-", "-", "-", "22.5", "24", "-"}},
    {"Tint Colour G", {"-", "-", "-", "-", "-", "44.5", "64.5", "-"}},
    {"Tint Colour B", {"-", "-", "-", "-", "-", "54.5", "30", "-"}},
    {"Gun Align Red X", {"0", "0", "0", "10", "0", "0", "0", "0"}},
    {"Gun Align Red Y", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Gun Align Green X", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Gun Align Green Y", {"0", "0", "0", "20", "0", "0", "0", "0"}},
    {"Gun Align Blue X", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Gun Align Blue Y", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Colour Degrade Max", {"100", "100", "0", "100", "0", "0", "0", "100"}},
    {"Colour Threshold", {"100", "50", "100", "100", "100", "100", "100", "100"}},
    {"Num Ghosts", {"0", "6", "4", "0", "0", "0", "0", "0"}},
    {"Ghosting Threshold", {"100", "40", "40", "100", "100", "100", "100", "100"}},
    {"Ghosting Distance Max", {"100", "100", "200", "100", "0", "0", "0", "100"}},
    {"Ghosting Strength", {"100", "100", "100", "100", "0", "0", "0", "100"}},
    {"Ghosting Speed", {"10", "10", "50", "10", "0", "0", "0", "10"}},
    {"Edge Distortion Max", {"0", "300", "200", "0", "0", "0", "0", "0"}},
    {"Edge Jaggedness", {"1", "1", "70", "1", "0", "0", "0", "1"}},
    {"Edge Threshold", {"100", "50", "50", "100", "100", "100", "100", "100"}},
    {"Edge Speed", {"20", "20", "20", "20", "0", "0", "0", "20"}},
    {"Snow Max", {"0", "60", "40", "0", "0", "0", "0", "0"}},
    {"Snow Threshold", {"100", "0", "0", "100", "100", "100", "100", "100"}},
    {"Snow Softness", {"3", "3", "0", "3", "0", "0", "0", "3"}},
    {"Snow Sparseness", {"15", "15", "10", "15", "0", "0", "0", "15"}},
    {"Line Angle", {"160", "160", "10", "160", "10", "10", "10", "160"}},
    {"Line Spacing", {"50", "50", "20", "50", "50", "50", "50", "50"}},
    {"Line Speed Max", {"100", "100", "20", "100", "10", "10", "10", "100"}},
    {"Line Threshold", {"100", "70", "50", "100", "100", "100", "100", "100"}},
    {"Vert Offset Max", {"50", "50", "100", "50", "0", "0", "0", "50"}},
    {"Vert Offset Threshold", {"100", "80", "80", "100", "100", "100", "100", "100"}},
    {"Vert Roll Speed Max", {"50", "50", "50", "50", "0", "0", "0", "50"}},
    {"Vert Roll Threshold", {"100", "90", "90", "100", "100", "100", "100", "100"}},
    {"Master Breakup", {"0", "50", "70", "0", "0", "0", "0", "100"}},
    {"Breakup Variation", {"0", "200", "0", "0", "0", "0", "0", "0"}},
    {"Breakup Speed", {"10", "10", "10", "10", "0", "0", "0", "10"}},
    {"Scanline Width", {"0", "0", "0", "0", "3", "4", "0", "0"}},
    {"Play Mode", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Play Speed", {"100", "100", "100", "100", "100", "100", "100", "100"}},
    {"EM Interference", {"0", "0", "0", "0", "15", "0", "0", "0"}},
    {"White Dot", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Resolution", {"100", "100", "100", "100", "100", "100", "100", "100"}},
    {"Blur", {"0", "0", "0", "0", "1", "0", "0", "0"}},
    {"Repeat Frames", {"1", "1", "1", "1", "8", "2", "2", "1"}},
    {"Fish Eye", {"0", "0", "0", "0", "1", "0", "0", "0"}},
    {"Fish Eye Radius", {"450", "450", "450", "450", "450", "450", "450", "450"}},
    {"Fish Eye Power", {"40", "40", "40", "40", "40", "40", "40", "40"}},
    {"Filter", {"0", "0", "0", "0", "0", "0", "0", "0"}},
    {"Shash Type", {"5", "5", "5", "5", "5", "5", "5", "5"}},
    {"Shash Period", {"0.5", "0.5", "0.5", "0.5", "0.5", "0.5", "0.5", "0.5"}},
    {"Shash Threshold", {"100", "99", "99", "100", "99", "99", "99", "0"}},
    {"Shash Amount Max", {"0", "100", "100", "0", "100", "100", "100", "100"}},
};
// clang-format on

}  // namespace ruvex
