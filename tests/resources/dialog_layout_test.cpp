#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "pages/resources/resource_ids.h"
#include "tests/resources/module_dialogs.h"
#include "tests/resources/released_dialogs.h"

namespace ruvex {
namespace {

using resource_test::dialogOf;
using resource_test::isBox;
using resource_test::isChip;
using resource_test::isTabStop;
using resource_test::kDialogHeight;
using resource_test::kDialogWidth;
using resource_test::kVisibleBit;

TEST(DialogLayout, TheTabKeyFollowsTheReleasedOrder) {
    for (const ReleasedDialog& released : kReleasedDialogs) {
        std::vector<std::uint32_t> stops;
        for (const DialogControl& control : dialogOf(released.number).controls) {
            if (isTabStop(control)) stops.push_back(control.id);
        }
        const std::vector<std::uint32_t> expected(released.tabOrder.begin(),
                                                  released.tabOrder.end());
        EXPECT_EQ(stops, expected) << "dialog " << released.number;
    }
}

/// The next stop begins below this one, or right of it in the same row. The numbers of a colour
/// stand right of its chip, some of them higher.
bool isReadAfter(const DialogControl& next, const DialogControl& before) {
    if (isChip(before)) return next.x > before.x;
    return next.y > before.y || (next.y == before.y && next.x > before.x);
}

TEST(DialogLayout, TheTabKeyGoesFromTheTopDownAndFromLeftToRight) {
    for (const ReleasedDialog& released : kReleasedDialogs) {
        const DialogTemplate dialog = dialogOf(released.number);
        const DialogControl* before = nullptr;
        for (const DialogControl& control : dialog.controls) {
            if (!isTabStop(control)) continue;
            EXPECT_TRUE(before == nullptr || isReadAfter(control, *before)) << control.id;
            before = &control;
        }
    }
}

TEST(DialogLayout, ACaptionStandsDirectlyBeforeItsControl) {
    for (const ReleasedDialog& released : kReleasedDialogs) {
        const DialogTemplate dialog = dialogOf(released.number);
        for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
            const std::uint32_t id = dialog.controls[i].id;
            const bool isCaption = (id >= 2000 && id < 3000) || (id >= 6000 && id < 7000);
            if (!isCaption) continue;
            ASSERT_LT(i + 1, dialog.controls.size()) << id;
            EXPECT_EQ(CAPTION_OF(dialog.controls[i + 1].id), id);
        }
    }
}

bool contains(const DialogControl& outer, const DialogControl& inner) {
    return inner.x >= outer.x && inner.y >= outer.y &&
           inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

/// The height of the part that both cover; 0 if they do not overlap.
int overlap(const DialogControl& a, const DialogControl& b) {
    const int left = std::max(a.x, b.x);
    const int right = std::min(a.x + a.width, b.x + b.width);
    const int top = std::max(a.y, b.y);
    const int bottom = std::min(a.y + a.height, b.y + b.height);
    return right > left && bottom > top ? bottom - top : 0;
}

/// TV Colour with its caption, and everything of the tint: never shown at once.
bool areShownInTurn(const DialogControl& a, const DialogControl& b) {
    const auto isColour = [](const DialogControl& control) {
        return control.id == IDC_TV_COLOUR || control.id == CAPTION_OF(IDC_TV_COLOUR);
    };
    const auto isTint = [](std::uint32_t id) {
        return (id >= IDC_TINT_CHIP && id <= IDC_TINT_BLUE) ||
               (id >= CAPTION_OF(IDC_TINT_RED) && id <= CAPTION_OF(IDC_TINT_BLUE));
    };
    return (isColour(a) && isTint(b.id)) || (isColour(b) && isTint(a.id));
}

bool mayOverlap(const DialogControl& a, const DialogControl& b) {
    const bool oneFramesTheOther = (isBox(a) && contains(a, b)) || (isBox(b) && contains(b, a));
    const bool oneIsHidden = ((a.style & b.style) & kVisibleBit) == 0;
    return oneFramesTheOther || oneIsHidden || areShownInTurn(a, b);
}

std::map<std::string, int> overlaps(const DialogTemplate& dialog) {
    std::map<std::string, int> found;
    for (const DialogControl& a : dialog.controls) {
        for (const DialogControl& b : dialog.controls) {
            if (&a >= &b || mayOverlap(a, b) || overlap(a, b) == 0) continue;
            const auto [low, high] = std::minmax(a.id, b.id);
            found[std::to_string(low) + ' ' + std::to_string(high)] = overlap(a, b);
        }
    }
    return found;
}

TEST(DialogLayout, ControlsThatAreShownAtOnceDoNotOverlap) {
    // Where two rows are 19 units apart, a caption and the number above share one unit. So do
    // Repeat Frames and the box under it, which draws its frame lower. The line with the product's
    // name leaves its box.
    std::map<std::string, int> shared;
    for (const ReleasedDialog& released : kReleasedDialogs) {
        shared.merge(overlaps(dialogOf(released.number)));
    }
    std::map<std::string, int> expected;
    for (const char* pair :
         {"1076 2078", "1077 2079", "1080 2082", "1081 2083", "1082 2084", "1083 2084", "1087 2088",
          "1089 2090", "1093 2092", "1094 2091", "1105 2112", "1109 2117", "1110 2109", "1111 2105",
          "1112 4294967295"}) {
        expected[pair] = 1;
    }
    expected["1120 1123"] = 8;
    EXPECT_EQ(shared, expected);
}

TEST(DialogLayout, ControlsLieInTheirDialog) {
    for (const ReleasedDialog& released : kReleasedDialogs) {
        for (const DialogControl& control : dialogOf(released.number).controls) {
            // The line with the product's name is wider than the page.
            const int right = control.id == IDC_PRODUCT ? 221 : kDialogWidth;
            EXPECT_GE(control.x, 0) << control.id;
            EXPECT_GE(control.y, 0) << control.id;
            EXPECT_LE(control.x + control.width, right) << control.id;
            EXPECT_LE(control.y + control.height, kDialogHeight) << control.id;
        }
    }
}

}  // namespace
}  // namespace ruvex
