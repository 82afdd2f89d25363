// The labels of every enumeration, with the strings that the pages load them from.

#pragma once

#include "parameters/parameter_row.h"

namespace ruvex {

inline constexpr Choice kTvTypes[] = {{1002, "Colour"}, {1003, "B & W"}, {1004, "Tint"}};
inline constexpr Choice kPlayModes[] = {{1087, "Video"}, {1088, "DVD"}};
inline constexpr Choice kBorderAlphas[] = {{1103, "None"}, {1104, "Full"}, {1105, "Banded"}};
inline constexpr Choice kShashTypes[] = {{1116, "Type 1"}, {1117, "Type 2"}, {1118, "Type 3"},
                                         {1119, "Type 4"}, {1120, "Type 5"}, {1121, "Random"}};

/// The first entry is the title of the list: choosing it changes nothing.
inline constexpr Choice kPresets[] = {
    {1138, "Presets..."},    {1139, "Good TV"},     {1140, "Bad Colour TV"},
    {1141, "Bad B&W TV"},    {1142, "Offset Guns"}, {1143, "Security Camera"},
    {1144, "Aerial SpyCam"}, {1145, "NightVision"}, {1146, "Cable Out"}};

/// What is shown outside the crop. Each axis has its own strings, with the same texts.
inline constexpr Choice kXEdgeMethods[] = {
    {5010, "Colour"}, {5011, "Repeat"}, {5012, "Reflect"}, {5013, "Wrap"}};
inline constexpr Choice kYEdgeMethods[] = {
    {5016, "Colour"}, {5017, "Repeat"}, {5018, "Reflect"}, {5019, "Wrap"}};

}  // namespace ruvex
