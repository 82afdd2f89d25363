// Every control of every dialog that was released. A control is changed here only together with a
// reason: users know its place, and pages its number.

#pragma once

#include <cstdint>
#include <span>

namespace ruvex {

struct ReleasedControl {
    enum class Kind {
        Caption,
        HiddenCaption,
        PageText,
        Number,
        Chip,
        Choice,
        CheckBox,
        Button,
        Box,
        Picture
    };
    struct Rectangle {
        int x, y, width, height;
    };

    std::uint32_t id;
    Kind kind;
    Rectangle rectangle;
    const char* title;
};

struct ReleasedDialog {
    std::uint16_t number;
    std::span<const ReleasedControl> controls;
    /// The numbers of the controls that the Tab key reaches, in its order.
    std::span<const std::uint32_t> tabOrder;
};

namespace released_dialogs {

using Kind = ReleasedControl::Kind;
inline constexpr std::uint32_t kNoNumber = 0xFFFFFFFF;

// clang-format off
inline constexpr ReleasedControl kMain[] = {
    {1000, Kind::Choice, {102, 10, 82, 8}, ""},
    {2000, Kind::Caption, {102, 2, 82, 8}, "TV Type"},
    {1001, Kind::Number, {102, 130, 82, 12}, "Seed;class=dsnewnumberctrl;min=0;max=10000;decimals=0"},
    {2001, Kind::Caption, {102, 122, 82, 8}, "Seed"},
    {1002, Kind::Number, {7, 31, 82, 12}, "TV Contrast;class=dsnewnumberctrl;min=-100;max=100"},
    {2002, Kind::Caption, {7, 23, 82, 8}, "TV Contrast"},
    {1003, Kind::Number, {102, 31, 82, 12}, "TV Brightness;class=dsnewnumberctrl;min=-100;max=100"},
    {2003, Kind::Caption, {102, 23, 82, 8}, "TV Brightness"},
    {1004, Kind::Number, {55, 52, 82, 12}, "TV Colour;class=dsnewnumberctrl;min=0;max=1000"},
    {2004, Kind::Caption, {55, 44, 82, 8}, "TV Colour"},
    {1005, Kind::Number, {7, 110, 82, 12}, "Master Breakup;class=dsnewnumberctrl;min=0;max=100"},
    {2005, Kind::Caption, {7, 102, 82, 8}, "Master Breakup"},
    {1006, Kind::Number, {102, 110, 82, 12}, "Breakup Variation;class=dsnewnumberctrl;min=0;max=1000"},
    {2006, Kind::Caption, {102, 102, 82, 8}, "Breakup Variation"},
    {1007, Kind::Number, {7, 130, 82, 12}, "Breakup Speed;class=dsnewnumberctrl;min=0;max=1000"},
    {2007, Kind::Caption, {7, 122, 82, 8}, "Breakup Speed"},
    {1008, Kind::Choice, {7, 10, 82, 8}, ""},
    {2008, Kind::HiddenCaption, {2, 149, 82, 8}, "Presets..."},
    {1009, Kind::Chip, {36, 59, 24, 23}, ";class=dsnewcolorchipctrl;auto=1"},
    {1011, Kind::Number, {65, 52, 82, 12}, "Tint Colour R;class=dsnewnumberctrl;min=0;max=100"},
    {2011, Kind::Caption, {150, 54, 8, 8}, "R"},
    {1012, Kind::Number, {65, 65, 82, 12}, "Tint Colour G;class=dsnewnumberctrl;min=0;max=100"},
    {2012, Kind::Caption, {150, 67, 8, 8}, "G"},
    {1013, Kind::Number, {65, 78, 82, 12}, "Tint Colour B;class=dsnewnumberctrl;min=0;max=100"},
    {2013, Kind::Caption, {150, 80, 8, 8}, "B"},
    {1062, Kind::Button, {73, 148, 44, 10}, "Reset"},
    {1010, Kind::Box, {29, 44, 132, 48}, "Tint Colour"},
    {kNoNumber, Kind::Box, {4, 95, 183, 50}, ""},
};
inline constexpr std::uint32_t kMainTabs[] = {
    1008, 1000, 1002, 1003, 1004, 1009, 1011, 1012, 1013, 1005, 1006, 1007, 1001, 1062};

inline constexpr ReleasedControl kGuns[] = {
    {1063, Kind::Number, {10, 19, 82, 12}, "TV Brightness Red;class=dsnewnumberctrl;min=-100;max=100"},
    {2063, Kind::Caption, {10, 11, 82, 8}, "TV Brightness Red"},
    {1064, Kind::Number, {98, 19, 82, 12}, "TV Brightness Green;class=dsnewnumberctrl;min=-100;max=100"},
    {2064, Kind::Caption, {98, 11, 82, 8}, "TV Brightness Green"},
    {1065, Kind::Number, {56, 43, 82, 12}, "TV Brightness Blue;class=dsnewnumberctrl;min=-100;max=100"},
    {2065, Kind::Caption, {56, 35, 82, 8}, "TV Brightness Blue"},
    {1066, Kind::Number, {10, 77, 82, 12}, "Gun Align Red X;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2066, Kind::Caption, {10, 69, 82, 8}, "Gun Align Red X"},
    {1067, Kind::Number, {98, 77, 82, 12}, "Gun Align Red Y;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2067, Kind::Caption, {98, 69, 82, 8}, "Gun Align Red Y"},
    {1068, Kind::Number, {10, 100, 82, 12}, "Gun Align Green X;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2068, Kind::Caption, {10, 92, 82, 8}, "Gun Align Green X"},
    {1069, Kind::Number, {98, 100, 82, 12}, "Gun Align Green Y;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2069, Kind::Caption, {98, 92, 82, 8}, "Gun Align Green Y"},
    {1070, Kind::Number, {10, 124, 82, 12}, "Gun Align Blue X;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2070, Kind::Caption, {10, 116, 82, 8}, "Gun Align Blue X"},
    {1071, Kind::Number, {98, 124, 82, 12}, "Gun Align Blue Y;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2071, Kind::Caption, {98, 116, 82, 8}, "Gun Align Blue Y"},
    {1073, Kind::Button, {73, 148, 44, 10}, "Reset"},
    {kNoNumber, Kind::Box, {4, 4, 182, 52}, ""},
    {kNoNumber, Kind::Box, {4, 61, 182, 78}, ""},
};
inline constexpr std::uint32_t kGunsTabs[] = {
    1063, 1064, 1065, 1066, 1067, 1068, 1069, 1070, 1071, 1073};

inline constexpr ReleasedControl kBreakup1[] = {
    {1074, Kind::Number, {8, 16, 82, 12}, "Colour Degrade Max;class=dsnewnumberctrl;min=0;max=100"},
    {2074, Kind::Caption, {8, 8, 82, 8}, "Colour Degrade Max"},
    {1075, Kind::Number, {99, 16, 82, 12}, "Colour Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2075, Kind::Caption, {99, 8, 82, 8}, "Colour Threshold"},
    {1076, Kind::Number, {8, 45, 82, 12}, "Snow Max;class=dsnewnumberctrl;min=-200;max=200"},
    {2076, Kind::Caption, {8, 37, 82, 8}, "Snow Max"},
    {1077, Kind::Number, {99, 45, 82, 12}, "Snow Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2077, Kind::Caption, {99, 37, 82, 8}, "Snow Threshold"},
    {1078, Kind::Number, {8, 64, 82, 12}, "Snow Softness;class=dsnewnumberctrl;min=0;max=20"},
    {2078, Kind::Caption, {8, 56, 82, 8}, "Snow Softness"},
    {1079, Kind::Number, {99, 64, 82, 12}, "Snow Sparseness;class=dsnewnumberctrl;min=0;max=100"},
    {2079, Kind::Caption, {99, 56, 82, 8}, "Snow Sparseness"},
    {1080, Kind::Number, {8, 94, 82, 12}, "Num Ghosts;class=dsnewnumberctrl;min=0;max=10;decimals=0"},
    {2080, Kind::Caption, {8, 86, 82, 8}, "Num Ghosts"},
    {1081, Kind::Number, {99, 94, 82, 12}, "Ghosting Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2081, Kind::Caption, {99, 86, 82, 8}, "Ghosting Threshold"},
    {1082, Kind::Number, {8, 113, 82, 12}, "Ghosting Distance Max;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2082, Kind::Caption, {8, 105, 82, 8}, "Ghosting Distance Max"},
    {1083, Kind::Number, {99, 113, 82, 12}, "Ghosting Strength;class=dsnewnumberctrl;min=0;max=1000"},
    {2083, Kind::Caption, {99, 105, 82, 8}, "Ghosting Strength"},
    {1084, Kind::Number, {56, 132, 82, 12}, "Ghosting Speed;class=dsnewnumberctrl;min=0;max=1000"},
    {2084, Kind::Caption, {56, 124, 82, 8}, "Ghosting Speed"},
    {1086, Kind::Button, {73, 148, 44, 10}, "Reset"},
    {kNoNumber, Kind::Box, {4, 2, 182, 27}, ""},
    {kNoNumber, Kind::Box, {4, 30, 182, 47}, ""},
    {kNoNumber, Kind::Box, {4, 79, 182, 66}, ""},
};
inline constexpr std::uint32_t kBreakup1Tabs[] = {
    1074, 1075, 1076, 1077, 1078, 1079, 1080, 1081, 1082, 1083, 1084, 1086};

inline constexpr ReleasedControl kBreakup2[] = {
    {1087, Kind::Number, {8, 18, 82, 12}, "Edge Distortion Max;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2087, Kind::Caption, {8, 10, 82, 8}, "Edge Distortion Max"},
    {1088, Kind::Number, {8, 37, 82, 12}, "Edge Jaggedness;class=dsnewnumberctrl;min=0;max=1000"},
    {2088, Kind::Caption, {8, 29, 82, 8}, "Edge Jaggedness"},
    {1089, Kind::Number, {98, 18, 82, 12}, "Edge Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2089, Kind::Caption, {98, 10, 82, 8}, "Edge Threshold"},
    {1090, Kind::Number, {98, 37, 82, 12}, "Edge Speed;class=dsnewnumberctrl;min=0;max=1000"},
    {2090, Kind::Caption, {98, 29, 82, 8}, "Edge Speed"},
    {1091, Kind::Number, {98, 85, 82, 12}, "Line Angle;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2091, Kind::Caption, {98, 77, 82, 8}, "Line Angle"},
    {1092, Kind::Number, {8, 85, 82, 12}, "Line Spacing;class=dsnewnumberctrl;min=1;max=1000"},
    {2092, Kind::Caption, {8, 77, 82, 8}, "Line Spacing"},
    {1093, Kind::Number, {8, 66, 82, 12}, "Line Speed Max;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2093, Kind::Caption, {8, 58, 82, 8}, "Line Speed Max"},
    {1094, Kind::Number, {98, 66, 82, 12}, "Line Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2094, Kind::Caption, {98, 58, 82, 8}, "Line Threshold"},
    {1095, Kind::Number, {8, 113, 82, 12}, "Vert Offset Max;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2095, Kind::Caption, {8, 105, 82, 8}, "Vert Offset Max"},
    {1096, Kind::Number, {98, 113, 82, 12}, "Vert Offset Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2096, Kind::Caption, {98, 105, 82, 8}, "Vert Offset Threshold"},
    {1097, Kind::Number, {8, 133, 82, 12}, "Vert Roll Speed Max;class=dsnewnumberctrl;min=-1000;max=1000"},
    {2097, Kind::Caption, {8, 125, 82, 8}, "Vert Roll Speed Max"},
    {1098, Kind::Number, {98, 133, 82, 12}, "Vert Roll Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2098, Kind::Caption, {98, 125, 82, 8}, "Vert Roll Threshold"},
    {1099, Kind::Button, {73, 148, 44, 10}, "Reset"},
    {kNoNumber, Kind::Box, {4, 3, 182, 47}, ""},
    {kNoNumber, Kind::Box, {4, 51, 182, 47}, ""},
    {kNoNumber, Kind::Box, {4, 99, 182, 47}, ""},
};
inline constexpr std::uint32_t kBreakup2Tabs[] = {
    1087, 1089, 1088, 1090, 1093, 1094, 1092, 1091, 1095, 1096, 1097, 1098, 1099};

inline constexpr ReleasedControl kShash[] = {
    {1100, Kind::Choice, {54, 26, 82, 8}, ""},
    {2100, Kind::Caption, {54, 18, 82, 8}, "Shash Type"},
    {1101, Kind::Number, {11, 54, 163, 12}, "Shash Period;class=dsnewnumberctrl;min=0;max=100"},
    {2101, Kind::Caption, {11, 46, 163, 8}, "Shash Period"},
    {1102, Kind::Number, {11, 87, 163, 12}, "Shash Amount Max;class=dsnewnumberctrl;min=0;max=100"},
    {2102, Kind::Caption, {11, 79, 163, 8}, "Shash Amount Max"},
    {1103, Kind::Number, {11, 120, 163, 12}, "Shash Threshold;class=dsnewnumberctrl;min=0;max=100"},
    {2103, Kind::Caption, {11, 112, 163, 8}, "Shash Threshold"},
    {1104, Kind::Button, {73, 148, 44, 10}, "Reset"},
};
inline constexpr std::uint32_t kShashTabs[] = {
    1100, 1101, 1102, 1103, 1104};

inline constexpr ReleasedControl kEffects[] = {
    {1105, Kind::Number, {7, 29, 82, 12}, "Scanline Width;class=dsnewnumberctrl;min=0;max=100;decimals=0"},
    {2105, Kind::Caption, {7, 21, 82, 8}, "Scanline Width"},
    {1106, Kind::Choice, {9, 74, 82, 8}, ""},
    {2106, Kind::Caption, {9, 66, 82, 8}, "Play Mode"},
    {1107, Kind::Number, {99, 74, 82, 12}, "Play Speed;class=dsnewnumberctrl;min=-800;max=800"},
    {2107, Kind::Caption, {99, 66, 82, 8}, "Play Speed"},
    {1108, Kind::Number, {55, 94, 82, 12}, "EM Interference;class=dsnewnumberctrl;min=0;max=200"},
    {2108, Kind::Caption, {55, 86, 82, 8}, "EM Interference"},
    {1109, Kind::Number, {97, 29, 82, 12}, "White Dot;class=dsnewnumberctrl;min=0;max=100"},
    {2109, Kind::Caption, {97, 21, 82, 8}, "White Dot"},
    {1110, Kind::Number, {97, 10, 82, 12}, "Resolution;class=dsnewnumberctrl;min=0;max=100"},
    {2110, Kind::Caption, {97, 2, 82, 8}, "Resolution"},
    {1111, Kind::Number, {7, 10, 82, 12}, "Blur;class=dsnewnumberctrl;min=0;max=20"},
    {2111, Kind::Caption, {7, 2, 82, 8}, "Blur"},
    {1112, Kind::Number, {7, 48, 82, 12}, "Repeat Frames;class=dsnewnumberctrl;min=1;max=20;decimals=0"},
    {2112, Kind::Caption, {7, 40, 82, 8}, "Repeat Frames"},
    {1113, Kind::CheckBox, {9, 115, 46, 10}, "Fish Eye"},
    {1114, Kind::Number, {9, 134, 82, 12}, "Fish Eye Radius;class=dsnewnumberctrl;min=0;max=2000"},
    {2114, Kind::Caption, {9, 126, 82, 8}, "Fish Eye Radius"},
    {1115, Kind::Number, {99, 134, 82, 12}, "Fish Eye Power;class=dsnewnumberctrl;min=-500;max=500"},
    {2115, Kind::Caption, {99, 126, 82, 8}, "Fish Eye Power"},
    {1116, Kind::CheckBox, {99, 115, 80, 10}, "Filter"},
    {1117, Kind::Choice, {97, 48, 82, 8}, ""},
    {2117, Kind::Caption, {97, 40, 82, 8}, "Border Alpha"},
    {1118, Kind::Button, {73, 148, 44, 10}, "Reset"},
    {kNoNumber, Kind::Box, {4, 59, 182, 47}, ""},
    {kNoNumber, Kind::Box, {4, 109, 182, 37}, ""},
};
inline constexpr std::uint32_t kEffectsTabs[] = {
    1111, 1110, 1105, 1109, 1112, 1117, 1106, 1107, 1108, 1113, 1116, 1114, 1115, 1118};

inline constexpr ReleasedControl kCropping[] = {
    {5000, Kind::Number, {8, 23, 82, 12}, "Crop Left;class=dsnewnumberctrl;min=0;max=100"},
    {6000, Kind::Caption, {8, 15, 39, 8}, "Crop Left"},
    {5001, Kind::Number, {101, 23, 82, 12}, "Crop Right;class=dsnewnumberctrl;min=0;max=100"},
    {6001, Kind::Caption, {101, 15, 39, 8}, "Crop Right"},
    {5002, Kind::Number, {8, 45, 82, 12}, "Crop Bottom;class=dsnewnumberctrl;min=0;max=100"},
    {6002, Kind::Caption, {8, 37, 56, 8}, "Crop Bottom"},
    {5003, Kind::Number, {101, 45, 82, 12}, "Crop Top;class=dsnewnumberctrl;min=0;max=100"},
    {6003, Kind::Caption, {101, 37, 39, 8}, "Crop Top"},
    {5004, Kind::Choice, {8, 67, 82, 8}, ""},
    {6004, Kind::Caption, {8, 59, 67, 8}, "X Edge Method"},
    {5005, Kind::Choice, {101, 67, 82, 8}, ""},
    {6005, Kind::Caption, {101, 59, 67, 8}, "Y Edge Method"},
    {5006, Kind::Chip, {36, 107, 24, 23}, ";class=dsnewcolorchipctrl;auto=1"},
    {5008, Kind::Number, {65, 93, 82, 12}, "Crop Colour R;class=dsnewnumberctrl;min=0;max=100"},
    {6008, Kind::Caption, {150, 95, 8, 8}, "R"},
    {5009, Kind::Number, {65, 106, 82, 12}, "Crop Colour G;class=dsnewnumberctrl;min=0;max=100"},
    {6009, Kind::Caption, {150, 108, 8, 8}, "G"},
    {5010, Kind::Number, {65, 119, 82, 12}, "Crop Colour B;class=dsnewnumberctrl;min=0;max=100"},
    {6010, Kind::Caption, {150, 121, 8, 8}, "B"},
    {5011, Kind::Number, {65, 132, 82, 12}, "Crop Colour A;class=dsnewnumberctrl;min=0;max=100"},
    {6011, Kind::Caption, {150, 134, 8, 8}, "A"},
    {5012, Kind::CheckBox, {49, 2, 92, 10}, "Display Cropped Source"},
    {5013, Kind::Button, {73, 148, 44, 10}, "Reset"},
    {5007, Kind::Box, {29, 84, 132, 62}, "Crop Colour"},
};
inline constexpr std::uint32_t kCroppingTabs[] = {
    5012, 5000, 5001, 5002, 5003, 5004, 5005, 5006, 5008, 5009, 5010, 5011, 5013};

inline constexpr ReleasedControl kHelp[] = {
    {1120, Kind::Box, {4, 0, 181, 130}, ""},
    {1121, Kind::PageText, {9, 4, 173, 82}, ""},
    {1122, Kind::Button, {62, 145, 66, 14}, "Online Help"},
    {1123, Kind::PageText, {54, 92, 167, 8}, ""},
    {1124, Kind::PageText, {54, 100, 126, 8}, ""},
    {1125, Kind::PageText, {54, 108, 126, 8}, ""},
    {1126, Kind::PageText, {54, 116, 126, 8}, ""},
    {kNoNumber, Kind::Picture, {9, 90, 39, 36}, ""},
    {1119, Kind::CheckBox, {54, 132, 81, 10}, "Hide Overlay Controls"},
};
inline constexpr std::uint32_t kHelpTabs[] = {
    1119, 1122};

// clang-format on

}  // namespace released_dialogs

inline constexpr ReleasedDialog kReleasedDialogs[] = {
    {1, released_dialogs::kMain, released_dialogs::kMainTabs},
    {2, released_dialogs::kGuns, released_dialogs::kGunsTabs},
    {3, released_dialogs::kBreakup1, released_dialogs::kBreakup1Tabs},
    {4, released_dialogs::kBreakup2, released_dialogs::kBreakup2Tabs},
    {5, released_dialogs::kShash, released_dialogs::kShashTabs},
    {6, released_dialogs::kEffects, released_dialogs::kEffectsTabs},
    {50, released_dialogs::kCropping, released_dialogs::kCroppingTabs},
    {7, released_dialogs::kHelp, released_dialogs::kHelpTabs},
};

struct ReleasedTip {
    std::uint32_t control;
    int string;
};

/// The tool-tips of all controls that have one.
// clang-format off
inline constexpr ReleasedTip kReleasedTips[] = {
    {1000, 1001}, {1001, 1006}, {1002, 1008}, {1003, 1010}, {1004, 1012}, {1005, 1078},
    {1006, 1080}, {1007, 1082}, {1008, 1137}, {1009, 1129}, {1011, 1131}, {1012, 1133},
    {1013, 1135}, {1062, 1150}, {1063, 1014}, {1064, 1016}, {1065, 1018}, {1066, 1020},
    {1067, 1022}, {1068, 1024}, {1069, 1026}, {1070, 1028}, {1071, 1030}, {1073, 1152},
    {1074, 1032}, {1075, 1034}, {1076, 1054}, {1077, 1056}, {1078, 1058}, {1079, 1060},
    {1080, 1036}, {1081, 1038}, {1082, 1040}, {1083, 1042}, {1084, 1044}, {1086, 1154},
    {1087, 1046}, {1088, 1048}, {1089, 1050}, {1090, 1052}, {1091, 1062}, {1092, 1064},
    {1093, 1066}, {1094, 1068}, {1095, 1070}, {1096, 1072}, {1097, 1074}, {1098, 1076},
    {1099, 1156}, {1100, 1115}, {1101, 1123}, {1102, 1125}, {1103, 1127}, {1104, 1158},
    {1105, 1084}, {1106, 1086}, {1107, 1090}, {1108, 1092}, {1109, 1094}, {1110, 1096},
    {1111, 1098}, {1112, 1100}, {1113, 1107}, {1114, 1109}, {1115, 1111}, {1116, 1113},
    {1117, 1102}, {1118, 1160}, {5000, 5001}, {5001, 5003}, {5002, 5005}, {5003, 5007},
    {5004, 5009}, {5005, 5015}, {5006, 5021}, {5008, 5023}, {5009, 5025}, {5010, 5027},
    {5011, 5029}, {5012, 5031}, {5013, 5035}, {1119, 1148},
};
// clang-format on

}  // namespace ruvex
