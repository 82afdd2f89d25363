// The control maps of the pages, against a table that is released and does not change.

#include "pages/breakup1_ppg.h"
#include "pages/breakup2_ppg.h"
#include "pages/effects_ppg.h"
#include "pages/full_crop_ppg.h"
#include "pages/guns_ppg.h"
#include "pages/help_ppg.h"
#include "pages/ruvex_ppg.h"
#include "pages/shash_ppg.h"
#include "tests/pages/page_test.h"

namespace ruvex::test {
namespace {

constexpr UINT kNone = 0xFFFFFFFF;

/// One entry. `label` is the parameter's; empty for a command.
struct Expected {
    UINT controlId;
    const char* label;
    VARTYPE type;
    UINT flags;
    UINT tip;
    DSNotify notify = nullptr;
};

template <class Page>
DSNotify calls(void (Page::*function)()) {
    return static_cast<DSNotify>(function);
}

constexpr VARTYPE kInt = 3, kReal = 5, kBool = 11;

const Expected kMain[] = {
    {1000, "TV Type", kInt, 16, 1001, calls(&RuvexPPG::UpdateTvTypeControls)},
    {1001, "Seed", kInt, 16, 1006},
    {1002, "TV Contrast", kReal, 1, 1008},
    {1003, "TV Brightness", kReal, 1, 1010},
    {1004, "TV Colour", kReal, 1, 1012},
    {1005, "Master Breakup", kReal, 1, 1078},
    {1006, "Breakup Variation", kReal, 1, 1080},
    {1007, "Breakup Speed", kReal, 1, 1082},
    {1008, "Presets...", kInt, 16, 1137, calls(&RuvexPPG::OnPresetSelected)},
    {1009, "", 0, 18, 1129, calls(&RuvexPPG::OnChipChanged)},
    {1011, "Tint Colour R", kReal, 1, 1131, calls(&RuvexPPG::OnColourNumberChanged)},
    {1012, "Tint Colour G", kReal, 1, 1133, calls(&RuvexPPG::OnColourNumberChanged)},
    {1013, "Tint Colour B", kReal, 1, 1135, calls(&RuvexPPG::OnColourNumberChanged)},
    {1062, "", 0, 18, 1150, calls(&RuvexPPG::OnResetPage)},
    {kNone, "TV Brightness Red", kReal, 1, 1014},
    {kNone, "TV Brightness Green", kReal, 1, 1016},
    {kNone, "TV Brightness Blue", kReal, 1, 1018},
    {kNone, "Gun Align Red X", kReal, 1, 1020},
    {kNone, "Gun Align Red Y", kReal, 1, 1022},
    {kNone, "Gun Align Green X", kReal, 1, 1024},
    {kNone, "Gun Align Green Y", kReal, 1, 1026},
    {kNone, "Gun Align Blue X", kReal, 1, 1028},
    {kNone, "Gun Align Blue Y", kReal, 1, 1030},
    {kNone, "Colour Degrade Max", kReal, 1, 1032},
    {kNone, "Colour Threshold", kReal, 1, 1034},
    {kNone, "Num Ghosts", kInt, 16, 1036},
    {kNone, "Ghosting Threshold", kReal, 1, 1038},
    {kNone, "Ghosting Distance Max", kReal, 1, 1040},
    {kNone, "Ghosting Strength", kReal, 1, 1042},
    {kNone, "Ghosting Speed", kReal, 1, 1044},
    {kNone, "Edge Distortion Max", kReal, 1, 1046},
    {kNone, "Edge Jaggedness", kReal, 1, 1048},
    {kNone, "Edge Threshold", kReal, 1, 1050},
    {kNone, "Edge Speed", kReal, 1, 1052},
    {kNone, "Snow Max", kReal, 1, 1054},
    {kNone, "Snow Threshold", kReal, 1, 1056},
    {kNone, "Snow Softness", kReal, 1, 1058},
    {kNone, "Snow Sparseness", kReal, 1, 1060},
    {kNone, "Line Angle", kReal, 1, 1062},
    {kNone, "Line Spacing", kReal, 1, 1064},
    {kNone, "Line Speed Max", kReal, 1, 1066},
    {kNone, "Line Threshold", kReal, 1, 1068},
    {kNone, "Vert Offset Max", kReal, 1, 1070},
    {kNone, "Vert Offset Threshold", kReal, 1, 1072},
    {kNone, "Vert Roll Speed Max", kReal, 1, 1074},
    {kNone, "Vert Roll Threshold", kReal, 1, 1076},
    {kNone, "Scanline Width", kInt, 16, 1084},
    {kNone, "Play Mode", kInt, 16, 1086},
    {kNone, "Play Speed", kReal, 1, 1090},
    {kNone, "EM Interference", kReal, 1, 1092},
    {kNone, "White Dot", kReal, 1, 1094},
    {kNone, "Resolution", kReal, 1, 1096},
    {kNone, "Blur", kReal, 1, 1098},
    {kNone, "Repeat Frames", kInt, 16, 1100},
    {kNone, "Fish Eye", kBool, 16, 1107},
    {kNone, "Fish Eye Radius", kReal, 1, 1109},
    {kNone, "Fish Eye Power", kReal, 1, 1111},
    {kNone, "Filter", kBool, 16, 1113},
    {kNone, "Shash Type", kInt, 16, 1115},
    {kNone, "Shash Period", kReal, 1, 1123},
    {kNone, "Shash Threshold", kReal, 1, 1127},
    {kNone, "Shash Amount Max", kReal, 1, 1125},
};

const Expected kGuns[] = {
    {1063, "TV Brightness Red", kReal, 1, 1014},
    {1064, "TV Brightness Green", kReal, 1, 1016},
    {1065, "TV Brightness Blue", kReal, 1, 1018},
    {1066, "Gun Align Red X", kReal, 1, 1020},
    {1067, "Gun Align Red Y", kReal, 1, 1022},
    {1068, "Gun Align Green X", kReal, 1, 1024},
    {1069, "Gun Align Green Y", kReal, 1, 1026},
    {1070, "Gun Align Blue X", kReal, 1, 1028},
    {1071, "Gun Align Blue Y", kReal, 1, 1030},
    {kNone, "TV Type", kInt, 16, 1001},
    {1073, "", 0, 18, 1152, calls(&GunsPPG::OnResetPage)},
};

const Expected kBreakup1[] = {
    {1074, "Colour Degrade Max", kReal, 1, 1032},
    {1075, "Colour Threshold", kReal, 1, 1034},
    {1076, "Snow Max", kReal, 1, 1054},
    {1077, "Snow Threshold", kReal, 1, 1056},
    {1078, "Snow Softness", kReal, 1, 1058},
    {1079, "Snow Sparseness", kReal, 1, 1060},
    {1080, "Num Ghosts", kInt, 16, 1036},
    {1081, "Ghosting Threshold", kReal, 1, 1038},
    {1082, "Ghosting Distance Max", kReal, 1, 1040},
    {1083, "Ghosting Strength", kReal, 1, 1042},
    {1084, "Ghosting Speed", kReal, 1, 1044},
    {kNone, "TV Type", kInt, 16, 1001},
    {1086, "", 0, 18, 1154, calls(&Breakup1PPG::OnResetPage)},
};

const Expected kBreakup2[] = {
    {1087, "Edge Distortion Max", kReal, 1, 1046},
    {1088, "Edge Jaggedness", kReal, 1, 1048},
    {1089, "Edge Threshold", kReal, 1, 1050},
    {1090, "Edge Speed", kReal, 1, 1052},
    {1091, "Line Angle", kReal, 1, 1062},
    {1092, "Line Spacing", kReal, 1, 1064},
    {1093, "Line Speed Max", kReal, 1, 1066},
    {1094, "Line Threshold", kReal, 1, 1068},
    {1095, "Vert Offset Max", kReal, 1, 1070},
    {1096, "Vert Offset Threshold", kReal, 1, 1072},
    {1097, "Vert Roll Speed Max", kReal, 1, 1074},
    {1098, "Vert Roll Threshold", kReal, 1, 1076},
    {1099, "", 0, 18, 1156, calls(&Breakup2PPG::OnResetPage)},
};

const Expected kShash[] = {
    {1100, "Shash Type", kInt, 16, 1115, calls(&ShashPPG::UpdateShashControls)},
    {1101, "Shash Period", kReal, 1, 1123},
    {1102, "Shash Amount Max", kReal, 1, 1125},
    {1103, "Shash Threshold", kReal, 1, 1127},
    {1104, "", 0, 18, 1158, calls(&ShashPPG::OnResetPage)},
};

const Expected kEffects[] = {
    {1105, "Scanline Width", kInt, 16, 1084},
    {1106, "Play Mode", kInt, 16, 1086},
    {1107, "Play Speed", kReal, 1, 1090},
    {1108, "EM Interference", kReal, 1, 1092},
    {1109, "White Dot", kReal, 1, 1094},
    {1110, "Resolution", kReal, 1, 1096},
    {1111, "Blur", kReal, 1, 1098},
    {1112, "Repeat Frames", kInt, 16, 1100},
    {1113, "Fish Eye", kBool, 16, 1107, calls(&EffectsPPG::UpdateFishEyeControls)},
    {1114, "Fish Eye Radius", kReal, 1, 1109},
    {1115, "Fish Eye Power", kReal, 1, 1111},
    {1116, "Filter", kBool, 16, 1113},
    {1117, "Border Alpha", kInt, 16, 1102},
    {1118, "", 0, 18, 1160, calls(&EffectsPPG::OnResetPage)},
};

const Expected kCrop[] = {
    {5000, "Crop Left", kReal, 1, 5001},
    {5001, "Crop Right", kReal, 1, 5003},
    {5002, "Crop Bottom", kReal, 1, 5005},
    {5003, "Crop Top", kReal, 1, 5007},
    {5004, "X Edge Method", kInt, 0, 5009},
    {5005, "Y Edge Method", kInt, 0, 5015},
    {5006, "", 0, 2, 5021, calls(&FullCropPPG::OnChipChanged)},
    {5008, "Crop Colour R", kReal, 1, 5023, calls(&FullCropPPG::OnColourNumberChanged)},
    {5009, "Crop Colour G", kReal, 1, 5025, calls(&FullCropPPG::OnColourNumberChanged)},
    {5010, "Crop Colour B", kReal, 1, 5027, calls(&FullCropPPG::OnColourNumberChanged)},
    {5011, "Crop Colour A", kReal, 1, 5029, calls(&FullCropPPG::OnColourNumberChanged)},
    {5012, "Display Cropped", kBool, 0, 5031},
    {5020, "Blank Cropped", kBool, 0, 5033},
    {5013, "", 0, 2, 5035, calls(&FullCropPPG::OnResetPage)},
};

const Expected kHelp[] = {
    {1119, "Hide Overlay Controls", kBool, 16, 1148, calls(&HelpPPG::OnHideOverlayChanged)},
    {1122, "", 0, 18, 1163, calls(&HelpPPG::OnOnlineHelp)},
};

const std::span<const Expected> kPages[] = {kMain,  kGuns,    kBreakup1, kBreakup2,
                                            kShash, kEffects, kCrop,     kHelp};

class ControlMap : public PageTest {};

void expectEntry(const CDSPPGControlMapEntry& entry, const Expected& expected,
                 CDSBasePropertyPage& page) {
    const bool command = *expected.label == '\0';
    const ParameterRow* const row = findParameter(std::string_view(expected.label));
    ASSERT_TRUE(command || row);
    EXPECT_EQ(entry.property, command ? GUID_NoProperty : row->identifier);
    EXPECT_EQ(entry.propertyType, expected.type);
    EXPECT_EQ(entry.boundType, expected.type);
    EXPECT_EQ(entry.boundVariable == nullptr, command);
    EXPECT_EQ(entry.controlId, expected.controlId);
    EXPECT_EQ(entry.flags, expected.flags);
    EXPECT_EQ(entry.toolTip, expected.tip);
    EXPECT_EQ(entry.last, 0xFFFFFFFFu);
    EXPECT_TRUE(entry.notify == expected.notify);
    if (command) return;
    const auto* const bound = static_cast<const char*>(entry.boundVariable(page));
    const auto* const object = reinterpret_cast<const char*>(&page);
    EXPECT_TRUE(bound > object && bound < object + sizeof(RuvexPPG)) << "inside of the page";
}

TEST_F(ControlMap, HasTheReleasedEntriesInTheirOrder) {
    for (std::size_t i = 0; i < std::size(kPageIds); ++i) {
        const auto page = open(kPageIds[i]);
        auto& base = as<CDSBasePropertyPage>(page);
        const CDSPPGControlMap& map = *base.GetControlMap();
        EXPECT_EQ(std::wstring(map.name()), L"Velmar4.3");
        EXPECT_EQ(map.version(), 1);
        EXPECT_EQ(map.base(), &CDSBasePropertyPage::m_ControlMap);
        ASSERT_EQ(map.entries().size(), kPages[i].size()) << i;
        for (std::size_t k = 0; k < kPages[i].size(); ++k) {
            SCOPED_TRACE(testing::Message() << "page " << i << ", entry " << k);
            expectEntry(map.entries()[k], kPages[i][k], base);
        }
        const CDSPPGControlMapEntry& end = *(map.entries().data() + map.entries().size());
        EXPECT_EQ(end.property, GUID{});
        EXPECT_EQ(end.propertyType, 0);
        EXPECT_EQ(end.boundType, 0);
        EXPECT_EQ(end.controlId, kNone);
        EXPECT_TRUE(end.notify == nullptr);
        EXPECT_EQ(end.flags, 2u);
        EXPECT_EQ(end.toolTip, kNone);
        EXPECT_EQ(end.last, kNone);
    }
}

TEST_F(ControlMap, GivesEveryControlItsToolTip) {
    for (const GUID& id : kPageIds) {
        const auto page = open(id);
        auto& base = as<CDSBasePropertyPage>(page);
        for (const CDSPPGControlMapEntry& entry : base.GetControlMap()->entries()) {
            const HWND window = base.GetHwndControl(entry.controlId);
            if (!window) continue;
            const bool silent = entry.toolTip == 1163;
            EXPECT_EQ(DSGetWindowState(window)->tip.empty(), silent) << entry.controlId;
        }
    }
}

}  // namespace
}  // namespace ruvex::test
