"""Which control of which page shows which property. Typed by hand, from the released dialogs and
docs/parameters.md, and not read from the program under test."""

PRESETS = 1008
NUMBER, CHIP, LIST = "DSNewNumberCtrl", "DSNewColorChipCtrl", "ComboBox"

NUMBERS = {
    "V_Ruvex": {
        1001: "Seed", 1002: "TV Contrast", 1003: "TV Brightness", 1004: "TV Colour",
        1005: "Master Breakup", 1006: "Breakup Variation", 1007: "Breakup Speed",
        1011: "Tint Colour R", 1012: "Tint Colour G", 1013: "Tint Colour B"},
    "Guns": {
        1063: "TV Brightness Red", 1064: "TV Brightness Green", 1065: "TV Brightness Blue",
        1066: "Gun Align Red X", 1067: "Gun Align Red Y", 1068: "Gun Align Green X",
        1069: "Gun Align Green Y", 1070: "Gun Align Blue X", 1071: "Gun Align Blue Y"},
    "Breakup 1": {
        1074: "Colour Degrade Max", 1075: "Colour Threshold", 1076: "Snow Max",
        1077: "Snow Threshold", 1078: "Snow Softness", 1079: "Snow Sparseness",
        1080: "Num Ghosts", 1081: "Ghosting Threshold", 1082: "Ghosting Distance Max",
        1083: "Ghosting Strength", 1084: "Ghosting Speed"},
    "Breakup 2": {
        1087: "Edge Distortion Max", 1088: "Edge Jaggedness", 1089: "Edge Threshold",
        1090: "Edge Speed", 1091: "Line Angle", 1092: "Line Spacing", 1093: "Line Speed Max",
        1094: "Line Threshold", 1095: "Vert Offset Max", 1096: "Vert Offset Threshold",
        1097: "Vert Roll Speed Max", 1098: "Vert Roll Threshold"},
    "Shash": {1101: "Shash Period", 1102: "Shash Amount Max", 1103: "Shash Threshold"},
    "Effects": {
        1105: "Scanline Width", 1107: "Play Speed", 1108: "EM Interference", 1109: "White Dot",
        1110: "Resolution", 1111: "Blur", 1112: "Repeat Frames", 1114: "Fish Eye Radius",
        1115: "Fish Eye Power"},
    "Cropping": {
        5000: "Crop Left", 5001: "Crop Right", 5002: "Crop Bottom", 5003: "Crop Top",
        5008: "Crop Colour R", 5009: "Crop Colour G", 5010: "Crop Colour B",
        5011: "Crop Colour A"},
    "Help": {},
}
WHOLE_NUMBERS = {1001, 1080, 1105, 1112}

EDGE_METHODS = ["Colour", "Repeat", "Reflect", "Wrap"]
LISTS = {
    "V_Ruvex": {
        1000: ("TV Type", ["Colour", "B & W", "Tint"]),
        PRESETS: ("Presets...", ["Presets...", "Good TV", "Bad Colour TV", "Bad B&W TV",
                                 "Offset Guns", "Security Camera", "Aerial SpyCam",
                                 "NightVision", "Cable Out"])},
    "Shash": {1100: ("Shash Type",
                     ["Type 1", "Type 2", "Type 3", "Type 4", "Type 5", "Random"])},
    "Effects": {1106: ("Play Mode", ["Video", "DVD"]),
                1117: ("Border Alpha", ["None", "Full", "Banded"])},
    "Cropping": {5004: ("X Edge Method", EDGE_METHODS), 5005: ("Y Edge Method", EDGE_METHODS)},
}

CHECK_BOXES = {
    "Effects": {1113: "Fish Eye", 1116: "Filter"},
    "Cropping": {5012: "Display Cropped"},
}
# A page's own switch: its property stays 0, whether or not the box is checked.
LOCAL_CHECK_BOXES = {"Help": {1119: "Hide Overlay Controls"}}

CHIPS = {
    "V_Ruvex": {1009: ("Tint Colour R", "Tint Colour G", "Tint Colour B")},
    "Cropping": {5006: ("Crop Colour R", "Crop Colour G", "Crop Colour B")},
}

RESETS = {"V_Ruvex": 1062, "Guns": 1073, "Breakup 1": 1086, "Breakup 2": 1099, "Shash": 1104,
          "Effects": 1118, "Cropping": 5013}

ONLINE_HELP = 1122

# What no control shows: "Blank Cropped" has none in the dialog, the masks are the host's.
WITHOUT_CONTROL = {"Blank Cropped", "Mask red channel.", "Mask green channel.",
                   "Mask blue channel.", "Mask alpha channel."}
PROPERTY_COUNT = 78

# (page, property, values at which the controls are shown or enabled, identifiers)
COLOUR_TV, GREY_TV, TINTED_TV = 0, 1, 2
RANDOM_SHASH = 5
TINT_GROUP = (1009, 1010, 1011, 1012, 1013, 2011, 2012, 2013)
SHOWN_WHEN = [
    ("V_Ruvex", "TV Type", {COLOUR_TV}, (1004, 2004)),
    ("V_Ruvex", "TV Type", {TINTED_TV}, TINT_GROUP),
]
ENABLED_WHEN = [
    ("Guns", "TV Type", {COLOUR_TV}, range(1063, 1072)),
    ("Breakup 1", "TV Type", {COLOUR_TV}, (1074, 1075)),
    ("Shash", "Shash Type", {RANDOM_SHASH}, (1101,)),
    ("Effects", "Fish Eye", {1}, (1114, 1115, 1116)),
]
