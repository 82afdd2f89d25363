#include "parameters/strings.h"

#include <gtest/gtest.h>
#include <set>

#include "parameters/parameter_table.h"
#include "tests/parameters/released_strings.h"

namespace ruvex {
namespace {

TEST(Strings, AreTheReleasedOnes) {
    ASSERT_EQ(strings::table().size(), std::size(kReleasedStrings));
    for (std::size_t i = 0; i < std::size(kReleasedStrings); ++i) {
        EXPECT_EQ(strings::table()[i].id, kReleasedStrings[i].id);
        EXPECT_EQ(strings::table()[i].text, kReleasedStrings[i].text) << kReleasedStrings[i].id;
        EXPECT_EQ(strings::text(kReleasedStrings[i].id), kReleasedStrings[i].text);
    }
}

TEST(Strings, IdentifiersAreUnique) {
    std::set<int> seen;
    for (const strings::Entry& entry : strings::table()) {
        EXPECT_TRUE(seen.insert(entry.id).second) << entry.id;
        EXPECT_FALSE(entry.text.empty()) << entry.id;
    }
}

TEST(Strings, HoldTheNamesAndHintsOfEveryParameter) {
    for (const ParameterRow& row : parameterTable()) {
        EXPECT_EQ(strings::text(row.nameString), row.name);
        EXPECT_EQ(strings::text(row.hintString), row.hint);
        EXPECT_EQ(row.name == row.label, row.page != ParameterPage::Host) << row.label;
        for (const Choice& choice : row.choices) {
            EXPECT_EQ(strings::text(choice.stringId), choice.label);
        }
    }
}

TEST(Strings, TheMasksHaveOneSentenceInBothPlaces) {
    EXPECT_EQ(row(ParameterId::MaskGreen).nameString, 1169);
    EXPECT_EQ(row(ParameterId::MaskGreen).hintString, 1173);
    EXPECT_EQ(strings::text(1169), "Mask green channel.");
    EXPECT_EQ(strings::text(1173), "Mask green channel.");
}

TEST(Strings, UnknownIdentifiersHaveNoText) {
    // 1178 is what the tool is registered with, 1163 the manual button's tool-tip: neither exists.
    for (const int id : {-1, 0, 999, 1163, 1178, 5034, 65536}) {
        EXPECT_TRUE(strings::text(id).empty()) << id;
    }
}

}  // namespace
}  // namespace ruvex
