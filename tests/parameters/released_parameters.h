// What was released, written down on its own so that no change of the table goes unseen. Documents
// hold the identifiers, scripts hold the labels, saved properties rely on kinds and order. A line
// here changes only when breaking them is meant.

#pragma once

namespace ruvex {

struct ReleasedParameter {
    const char* identifier;
    const char* label;
    const char* kind;
    const char* defaultValue;
    const char* control;
    const char* clamp;
};

// clang-format off
inline constexpr ReleasedParameter kReleasedParameters[] = {
    {"A41E7F76-37AB-48B5-99C9-C4B83402C0FC", "TV Type", "enum", "0", "Colour, B & W, Tint", "-"},
    {"A41E7F77-37AB-48B5-99C9-C4B83402C0FC", "Seed", "int", "5", "0..10000", "-"},
    {"A41E7F78-37AB-48B5-99C9-C4B83402C0FC", "TV Contrast", "real", "0", "-100..100", "-"},
    {"A41E7F79-37AB-48B5-99C9-C4B83402C0FC", "TV Brightness", "real", "0", "-100..100", "-"},
    {"A41E7F7A-37AB-48B5-99C9-C4B83402C0FC", "TV Colour", "real", "100", "0..1000", "-"},
    {"A41E7F7B-37AB-48B5-99C9-C4B83402C0FC", "TV Brightness Red", "real", "0", "-100..100", "-"},
    {"A41E7F7C-37AB-48B5-99C9-C4B83402C0FC", "TV Brightness Green", "real", "0", "-100..100", "-"},
    {"A41E7F7D-37AB-48B5-99C9-C4B83402C0FC", "TV Brightness Blue", "real", "0", "-100..100", "-"},
    {"A41E7F7E-37AB-48B5-99C9-C4B83402C0FC", "Gun Align Red X", "real", "0", "-1000..1000", "-1000..1000"},
    {"A41E7F7F-37AB-48B5-99C9-C4B83402C0FC", "Gun Align Red Y", "real", "0", "-1000..1000", "-1000..1000"},
    {"A41E7F80-37AB-48B5-99C9-C4B83402C0FC", "Gun Align Green X", "real", "0", "-1000..1000", "-1000..1000"},
    {"A41E7F81-37AB-48B5-99C9-C4B83402C0FC", "Gun Align Green Y", "real", "0", "-1000..1000", "-1000..1000"},
    {"A41E7F82-37AB-48B5-99C9-C4B83402C0FC", "Gun Align Blue X", "real", "0", "-1000..1000", "-1000..1000"},
    {"A41E7F83-37AB-48B5-99C9-C4B83402C0FC", "Gun Align Blue Y", "real", "0", "-1000..1000", "-1000..1000"},
    {"A41E7F84-37AB-48B5-99C9-C4B83402C0FC", "Colour Degrade Max", "real", "100", "0..100", "0..100"},
    {"A41E7F85-37AB-48B5-99C9-C4B83402C0FC", "Colour Threshold", "real", "50", "0..100", "0..100"},
    {"A41E7F86-37AB-48B5-99C9-C4B83402C0FC", "Num Ghosts", "int", "2", "0..10", "-"},
    {"A41E7F87-37AB-48B5-99C9-C4B83402C0FC", "Ghosting Threshold", "real", "20", "0..100", "0..100"},
    {"A41E7F88-37AB-48B5-99C9-C4B83402C0FC", "Ghosting Distance Max", "real", "50", "-1000..1000", "-"},
    {"A41E7F89-37AB-48B5-99C9-C4B83402C0FC", "Ghosting Strength", "real", "100", "0..1000", "-"},
    {"A41E7F8A-37AB-48B5-99C9-C4B83402C0FC", "Ghosting Speed", "real", "50", "0..1000", "-"},
    {"A41E7F8B-37AB-48B5-99C9-C4B83402C0FC", "Edge Distortion Max", "real", "100", "-1000..1000", "-"},
    {"A41E7F8C-37AB-48B5-99C9-C4B83402C0FC", "Edge Jaggedness", "real", "1", "0..1000", "at least 0"},
    {"A41E7F8D-37AB-48B5-99C9-C4B83402C0FC", "Edge Threshold", "real", "40", "0..100", "0..100"},
    {"A41E7F8E-37AB-48B5-99C9-C4B83402C0FC", "Edge Speed", "real", "50", "0..1000", "-"},
    {"A41E7F8F-37AB-48B5-99C9-C4B83402C0FC", "Snow Max", "real", "60", "-200..200", "-"},
    {"A41E7F90-37AB-48B5-99C9-C4B83402C0FC", "Snow Threshold", "real", "0", "0..100", "0..100"},
    {"A41E7F91-37AB-48B5-99C9-C4B83402C0FC", "Snow Softness", "real", "3", "0..20", "at least 0"},
    {"A41E7F92-37AB-48B5-99C9-C4B83402C0FC", "Snow Sparseness", "real", "15", "0..100", "0..100"},
    {"A41E7F93-37AB-48B5-99C9-C4B83402C0FC", "Line Angle", "real", "10", "-1000..1000", "-"},
    {"A41E7F94-37AB-48B5-99C9-C4B83402C0FC", "Line Spacing", "real", "50", "1..1000", "at least 1"},
    {"A41E7F95-37AB-48B5-99C9-C4B83402C0FC", "Line Speed Max", "real", "100", "-1000..1000", "-"},
    {"A41E7F96-37AB-48B5-99C9-C4B83402C0FC", "Line Threshold", "real", "50", "0..100", "0..100"},
    {"A41E7F97-37AB-48B5-99C9-C4B83402C0FC", "Vert Offset Max", "real", "200", "-1000..1000", "-"},
    {"A41E7F98-37AB-48B5-99C9-C4B83402C0FC", "Vert Offset Threshold", "real", "80", "0..100", "0..100"},
    {"A41E7F99-37AB-48B5-99C9-C4B83402C0FC", "Vert Roll Speed Max", "real", "1000", "-1000..1000", "-"},
    {"A41E7F9A-37AB-48B5-99C9-C4B83402C0FC", "Vert Roll Threshold", "real", "90", "0..100", "0..100"},
    {"A41E7F9B-37AB-48B5-99C9-C4B83402C0FC", "Master Breakup", "real", "50", "0..100", "0..100"},
    {"A41E7F9C-37AB-48B5-99C9-C4B83402C0FC", "Breakup Variation", "real", "100", "0..1000", "at least 0"},
    {"A41E7F9D-37AB-48B5-99C9-C4B83402C0FC", "Breakup Speed", "real", "50", "0..1000", "-"},
    {"A41E7F9E-37AB-48B5-99C9-C4B83402C0FC", "Scanline Width", "int", "0", "0..100", "-"},
    {"A41E7F9F-37AB-48B5-99C9-C4B83402C0FC", "Play Mode", "enum", "0", "Video, DVD", "-"},
    {"A41E7FA0-37AB-48B5-99C9-C4B83402C0FC", "Play Speed", "real", "100", "-800..800", "-"},
    {"A41E7FA1-37AB-48B5-99C9-C4B83402C0FC", "EM Interference", "real", "0", "0..200", "at least 0"},
    {"A41E7FA2-37AB-48B5-99C9-C4B83402C0FC", "White Dot", "real", "0", "0..100", "0..100"},
    {"A41E7FA3-37AB-48B5-99C9-C4B83402C0FC", "Resolution", "real", "100", "0..100", "0..100"},
    {"A41E7FA4-37AB-48B5-99C9-C4B83402C0FC", "Blur", "real", "0", "0..20", "at least 0"},
    {"A41E7FA5-37AB-48B5-99C9-C4B83402C0FC", "Repeat Frames", "int", "1", "1..20", "-"},
    {"A41E7FA6-37AB-48B5-99C9-C4B83402C0FC", "Border Alpha", "enum", "0", "None, Full, Banded", "-"},
    {"A41E7FA7-37AB-48B5-99C9-C4B83402C0FC", "Fish Eye", "bool", "off", "check box", "-"},
    {"A41E7FA8-37AB-48B5-99C9-C4B83402C0FC", "Fish Eye Radius", "real", "400", "0..2000", "at least 0"},
    {"A41E7FA9-37AB-48B5-99C9-C4B83402C0FC", "Fish Eye Power", "real", "40", "-500..500", "-"},
    {"A41E7FAA-37AB-48B5-99C9-C4B83402C0FC", "Filter", "bool", "off", "check box", "-"},
    {"A41E7FAB-37AB-48B5-99C9-C4B83402C0FC", "Shash Type", "enum", "5", "Type 1, Type 2, Type 3, Type 4, Type 5, Random", "-"},
    {"A41E7FAC-37AB-48B5-99C9-C4B83402C0FC", "Shash Period", "real", "0.5", "0..100", "at least 0"},
    {"A41E7FAD-37AB-48B5-99C9-C4B83402C0FC", "Shash Amount Max", "real", "100", "0..100", "0..100"},
    {"A41E7FAE-37AB-48B5-99C9-C4B83402C0FC", "Shash Threshold", "real", "99", "0..100", "0..100"},
    {"A41E7FB0-37AB-48B5-99C9-C4B83402C0FC", "Tint Colour R", "real", "25", "0..100", "-"},
    {"A41E7FB1-37AB-48B5-99C9-C4B83402C0FC", "Tint Colour G", "real", "65", "0..100", "-"},
    {"A41E7FB2-37AB-48B5-99C9-C4B83402C0FC", "Tint Colour B", "real", "30", "0..100", "-"},
    {"A41E7FB3-37AB-48B5-99C9-C4B83402C0FC", "Presets...", "ui int", "0", "Presets..., Good TV, Bad Colour TV, Bad B&W TV, Offset Guns, Security Camera, Aerial SpyCam, NightVision, Cable Out", "-"},
    {"A41E7FB4-37AB-48B5-99C9-C4B83402C0FC", "Hide Overlay Controls", "ui bool", "off", "check box", "-"},
    {"F2A92C64-2302-11D3-AB91-0000E8D8077F", "Crop Left", "real", "0", "0..100", "-"},
    {"F2A92C65-2302-11D3-AB91-0000E8D8077F", "Crop Right", "real", "100", "0..100", "-"},
    {"F2A92C66-2302-11D3-AB91-0000E8D8077F", "Crop Bottom", "real", "0", "0..100", "-"},
    {"F2A92C67-2302-11D3-AB91-0000E8D8077F", "Crop Top", "real", "100", "0..100", "-"},
    {"F2A92C68-2302-11D3-AB91-0000E8D8077F", "X Edge Method", "enum", "2", "Colour, Repeat, Reflect, Wrap", "-"},
    {"F2A92C69-2302-11D3-AB91-0000E8D8077F", "Y Edge Method", "enum", "2", "Colour, Repeat, Reflect, Wrap", "-"},
    {"F2A92C6B-2302-11D3-AB91-0000E8D8077F", "Crop Colour R", "real", "0", "0..100", "0..100"},
    {"F2A92C6C-2302-11D3-AB91-0000E8D8077F", "Crop Colour G", "real", "0", "0..100", "0..100"},
    {"F2A92C6D-2302-11D3-AB91-0000E8D8077F", "Crop Colour B", "real", "0", "0..100", "0..100"},
    {"F2A92C6E-2302-11D3-AB91-0000E8D8077F", "Crop Colour A", "real", "0", "0..100", "-"},
    {"F2A92C70-2302-11D3-AB91-0000E8D8077F", "Blank Cropped", "bool", "off", "check box", "-"},
    {"F2A92C6F-2302-11D3-AB91-0000E8D8077F", "Display Cropped", "bool", "off", "check box", "-"},
    {"A9962F51-7962-11D0-8AF7-00A024EE5780", "Mask Red", "int", "1", "none", "-"},
    {"A9962F52-7962-11D0-8AF7-00A024EE5780", "Mask Green", "int", "1", "none", "-"},
    {"A9962F53-7962-11D0-8AF7-00A024EE5780", "Mask Blue", "int", "1", "none", "-"},
    {"D5794982-786C-11D0-8AF5-00A024EE5780", "Mask Alpha", "int", "1", "none", "-"},
};
// clang-format on

}  // namespace ruvex
