#include "sdk/resources/dialog_template.h"

#include <gtest/gtest.h>
#include <string>

#include "tests/resources/resource_bytes.h"

namespace ruvex {
namespace {

using resource_test::append16;
using resource_test::append32;
using resource_test::Bytes;
using resource_test::fileOf;
using resource_test::plain;

constexpr std::uint32_t kNoIdentifier = 0xFFFFFFFF;

/// The resources of tests/resources/templates.rc.
Bytes templates() {
    return resource_test::readBytes(RUVEX_TEMPLATES_RES);
}

std::string rectangle(const auto& placed) {
    return std::to_string(placed.x) + ',' + std::to_string(placed.y) + ',' +
           std::to_string(placed.width) + ',' + std::to_string(placed.height);
}

TEST(DialogTemplate, HasTheFieldsOfTheDialog) {
    const Bytes bytes = templates();
    const auto dialog = readDialog(ResourceFile(bytes), 7);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(rectangle(*dialog), "3,4,190,160");
    EXPECT_EQ(dialog->style, 0x40C00440u);  // the compiler adds WS_CAPTION
    EXPECT_EQ(dialog->extendedStyle, 0x10000u);
    EXPECT_EQ(plain(dialog->title), "A page");
    EXPECT_EQ(dialog->pointSize, 11);
    EXPECT_EQ(dialog->weight, 700);
    EXPECT_TRUE(dialog->italic);
    EXPECT_EQ(plain(dialog->typeface), "Arial");
    EXPECT_EQ(dialog->controls.size(), 5u);
}

TEST(DialogTemplate, HasTheFieldsOfAControl) {
    const Bytes bytes = templates();
    const auto dialog = readDialog(ResourceFile(bytes), 7);
    ASSERT_TRUE(dialog && dialog->controls.size() == 5);
    const DialogControl& number = dialog->controls[0];
    EXPECT_EQ(number.id, 1001u);
    EXPECT_EQ(number.style, 0x50010000u);
    EXPECT_EQ(number.extendedStyle, 0u);
    EXPECT_EQ(rectangle(number), "102,130,82,12");
    EXPECT_FALSE(number.title.number);
    EXPECT_EQ(plain(number.title.text), "Seed;class=dsnewnumberctrl;min=0");
    EXPECT_EQ(dialog->controls[1].id, kNoIdentifier);
    EXPECT_EQ(dialog->controls[2].extendedStyle, 0x20u);
    EXPECT_EQ(rectangle(dialog->controls[3]), "-32768,32767,1,0");
}

TEST(DialogTemplate, GivesTheSystemsClassesByNumberAndOthersByName) {
    const Bytes bytes = templates();
    const auto dialog = readDialog(ResourceFile(bytes), 7);
    ASSERT_TRUE(dialog && dialog->controls.size() == 5);
    EXPECT_EQ(dialog->controls[0].windowClass.number, kStaticClass);  // by name in the file
    EXPECT_EQ(dialog->controls[1].windowClass.number, kButtonClass);
    EXPECT_EQ(dialog->controls[4].windowClass.number, kComboBoxClass);  // by number in the file
    EXPECT_FALSE(dialog->controls[3].windowClass.number);
    EXPECT_EQ(plain(dialog->controls[3].windowClass.text), "OWNCLASS");
}

TEST(DialogTemplate, ReadsANumberAsTitleAndSkipsCreationData) {
    const Bytes bytes = templates();
    const auto dialog = readDialog(ResourceFile(bytes), 7);
    ASSERT_TRUE(dialog && dialog->controls.size() == 5);
    EXPECT_EQ(dialog->controls[2].title.number, 103);
    EXPECT_EQ(plain(dialog->controls[3].title.text), "odd");
    EXPECT_EQ(dialog->controls[4].id, 1008u);  // follows the creation data
    EXPECT_EQ(rectangle(dialog->controls[4]), "7,10,82,8");
}

TEST(DialogTemplate, MayHaveNeitherFontNorControls) {
    const Bytes bytes = templates();
    const auto dialog = readDialog(ResourceFile(bytes), 8);
    ASSERT_TRUE(dialog);
    EXPECT_EQ(dialog->style, 0x40000000u);
    EXPECT_EQ(dialog->pointSize, 0);
    EXPECT_TRUE(dialog->typeface.empty());
    EXPECT_TRUE(dialog->controls.empty());
}

TEST(DialogTemplate, TheOldFormAndUnknownNumbersGiveNothing) {
    const Bytes bytes = templates();
    EXPECT_TRUE(ResourceFile(bytes).find(ResourceType::Dialog, 9));
    EXPECT_FALSE(readDialog(ResourceFile(bytes), 9));
    EXPECT_FALSE(readDialog(ResourceFile(bytes), 10));
}

/// A template without font and texts that claims `count` controls and holds none.
Bytes emptyDialog(unsigned count) {
    Bytes data;
    append16(data, 1);
    append16(data, 0xFFFF);
    for (int i = 0; i < 3; ++i) append32(data, 0);  // help, extended style, style
    append16(data, count);
    for (int i = 0; i < 4 + 3; ++i) append16(data, 0);  // rectangle; menu, class, title
    return fileOf(ResourceType::Dialog, 1, data);
}

TEST(DialogTemplate, MoreControlsThanTheDataHoldsGiveNothing) {
    EXPECT_TRUE(readDialog(ResourceFile(emptyDialog(0)), 1));
    EXPECT_FALSE(readDialog(ResourceFile(emptyDialog(1)), 1));
    EXPECT_FALSE(readDialog(ResourceFile(emptyDialog(0xFFFF)), 1));
}

/// Reads all dialogs of the bytes to the last character of every text.
void readAllDialogs(const Bytes& bytes) {
    for (const std::uint16_t number : {7, 8, 9}) {
        const auto dialog = readDialog(ResourceFile(bytes), number);
        if (!dialog) continue;
        std::size_t length = plain(dialog->title).size() + plain(dialog->typeface).size();
        for (const DialogControl& control : dialog->controls) {
            length += plain(control.windowClass.text).size() + plain(control.title.text).size();
        }
        EXPECT_LE(2 * length, bytes.size());
    }
}

TEST(DialogTemplate, AFileThatIsCutOffAnywhereStaysWithinItsBytes) {
    resource_test::forEachCut(templates(), readAllDialogs);
}

TEST(DialogTemplate, DamagedBytesStayWithinTheFile) {
    resource_test::forEachDamage(templates(), readAllDialogs);
}

TEST(DialogTemplate, ATemplateThatIsCutOffAnywhereGivesNothing) {
    const Bytes bytes = templates();
    const auto record = ResourceFile(bytes).find(ResourceType::Dialog, 7);
    ASSERT_TRUE(record);
    const Bytes whole(record->data.begin(), record->data.end());
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_FALSE(readDialog(ResourceFile(fileOf(ResourceType::Dialog, 7, cut)), 7)) << size;
    }
    EXPECT_TRUE(readDialog(ResourceFile(fileOf(ResourceType::Dialog, 7, whole)), 7));
}

}  // namespace
}  // namespace ruvex
