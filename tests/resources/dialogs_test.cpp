#include <cstdint>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <string>

#include "pages/resources/resource_ids.h"
#include "tests/resources/module_dialogs.h"
#include "tests/resources/released_dialogs.h"

namespace ruvex {
namespace {

using Kind = ReleasedControl::Kind;
using resource_test::dialogOf;
using resource_test::kDialogHeight;
using resource_test::kDialogWidth;
using resource_test::kTabStopBit;
using resource_test::kVisibleBit;
using resource_test::moduleResources;
using resource_test::plain;

struct ClassAndStyle {
    std::uint16_t windowClass;
    std::uint32_t style;
};

ClassAndStyle formOf(Kind kind) {
    constexpr std::uint32_t kChild = 0x40000000;
    constexpr std::uint32_t kShown = kChild | kVisibleBit;
    switch (kind) {
        case Kind::Caption:
            return {kStaticClass, kShown};
        case Kind::HiddenCaption:
            return {kStaticClass, kChild};
        case Kind::PageText:
            return {kStaticClass, kShown | 0x80};  // an ampersand is shown as one
        case Kind::Number:
        case Kind::Chip:
            return {kStaticClass, kShown | kTabStopBit};
        case Kind::Choice:
            return {kComboBoxClass, kShown | kTabStopBit | 0x200003};  // scroll bar; no typing
        case Kind::CheckBox:
            return {kButtonClass, kShown | kTabStopBit | 0x3};
        case Kind::Button:
            return {kButtonClass, kShown | kTabStopBit};
        case Kind::Box:
            return {kButtonClass, kShown | 0x7};
        case Kind::Picture:
            return {kStaticClass, kShown | 0x20E};  // a bitmap, centred
    }
    return {};
}

std::string describe(std::uint32_t id, ClassAndStyle form, const auto& rectangle,
                     const std::string& title) {
    std::ostringstream text;
    text << id << " class " << std::hex << form.windowClass << " style " << form.style << std::dec
         << " at " << rectangle.x << ',' << rectangle.y << ',' << rectangle.width << ','
         << rectangle.height << ": " << title;
    return text.str();
}

std::multiset<std::string> released(const ReleasedDialog& dialog) {
    std::multiset<std::string> lines;
    for (const ReleasedControl& control : dialog.controls) {
        const std::string title = control.kind == Kind::Picture ? "bitmap 103" : control.title;
        lines.insert(describe(control.id, formOf(control.kind), control.rectangle, title));
    }
    return lines;
}

std::multiset<std::string> present(const DialogTemplate& dialog) {
    std::multiset<std::string> lines;
    for (const DialogControl& control : dialog.controls) {
        const auto windowClass = control.windowClass.number.value_or(std::uint16_t{0});
        const std::string title = control.title.number
                                      ? "bitmap " + std::to_string(*control.title.number)
                                      : plain(control.title.text);
        lines.insert(describe(control.id, {windowClass, control.style}, control, title));
        EXPECT_EQ(control.extendedStyle, 0u) << lines.size();
    }
    return lines;
}

TEST(Dialogs, AreTheReleasedOnesAndNoOthers) {
    std::set<int> expected;
    for (const ReleasedDialog& dialog : kReleasedDialogs) expected.insert(dialog.number);
    std::set<int> found;
    for (int number = 0; number <= 0xFFFF; ++number) {
        const auto id = static_cast<std::uint16_t>(number);
        if (moduleResources().find(ResourceType::Dialog, id)) found.insert(number);
    }
    EXPECT_EQ(found, expected);
}

TEST(Dialogs, AreChildWindowsOfOneSizeAndFontWithoutCaption) {
    for (const ReleasedDialog& released : kReleasedDialogs) {
        const DialogTemplate dialog = dialogOf(released.number);
        EXPECT_EQ(dialog.style, 0x40000000u | 0x400u | 0x40u);  // child, page of a dialog, font
        EXPECT_EQ(dialog.extendedStyle, 0u);
        EXPECT_EQ(dialog.x, 0);
        EXPECT_EQ(dialog.y, 0);
        EXPECT_EQ(dialog.width, kDialogWidth);
        EXPECT_EQ(dialog.height, kDialogHeight);
        EXPECT_TRUE(dialog.title.empty());
        EXPECT_EQ(dialog.pointSize, 11);
        EXPECT_EQ(dialog.weight, 400);
        EXPECT_FALSE(dialog.italic);
        EXPECT_EQ(plain(dialog.typeface), "Arial");
    }
}

TEST(Dialogs, HoldTheReleasedControlsAndNothingElse) {
    for (const ReleasedDialog& dialog : kReleasedDialogs) {
        EXPECT_EQ(present(dialogOf(dialog.number)), released(dialog)) << "dialog " << dialog.number;
    }
}

TEST(Dialogs, NumbersAreUsedOnce) {
    std::set<std::uint32_t> seen;
    for (const ReleasedDialog& released : kReleasedDialogs) {
        for (const DialogControl& control : dialogOf(released.number).controls) {
            if (control.id == released_dialogs::kNoNumber) continue;
            EXPECT_TRUE(seen.insert(control.id).second) << control.id;
        }
    }
    // Bound by pages, but never placed in a dialog.
    for (const std::uint32_t id : {5020, 6020, 2119}) EXPECT_FALSE(seen.contains(id)) << id;
}

TEST(Dialogs, HaveTheTelevisionInTwoSizes) {
    const auto small = readBitmap(moduleResources(), IDB_TELEVISION_32);
    const auto large = readBitmap(moduleResources(), IDB_TELEVISION_64);
    ASSERT_TRUE(small && large);
    EXPECT_EQ(small->width, 32);
    EXPECT_EQ(small->height, 32);
    EXPECT_EQ(large->width, 64);
    EXPECT_EQ(large->height, 64);
    EXPECT_EQ(IDB_TELEVISION_32, 102);
    EXPECT_EQ(IDB_TELEVISION_64, 103);
}

}  // namespace
}  // namespace ruvex
