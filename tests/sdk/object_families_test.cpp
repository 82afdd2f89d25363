#include "sdk/effect/object_families.h"

#include <gtest/gtest.h>

#include "sdk/effect/ruvex_class_id.h"

namespace ruvex::test {
namespace {

// Projects of the host hold these, so they never change.
TEST(ReleasedIdentifiers, FamiliesAndEffectAreAsReleased) {
    EXPECT_EQ(toText(kRuvexClassId), "A41E7F12-37AB-48B5-99C9-C4B83402C0FC");
    EXPECT_EQ(toText(DSFAMILY_Filter), "AE0D7C31-95AA-11D0-B685-00A024191AE0");
    EXPECT_EQ(toText(DSFAMILY_Filter2), "28610EB3-AECA-11D1-BFAD-0800368E7203");
    EXPECT_EQ(toText(DSFAMILY_Filter3), "95F7E8A0-8B84-11D1-94A3-00A0C911C625");
    EXPECT_EQ(toText(DSFAMILY_WithoutInput), "61054A81-9662-11D0-B685-00A024191AE0");
    EXPECT_EQ(toText(DSFAMILY_Paint), "AE0D7C40-95AA-11D0-B685-00A024191AE0");
    EXPECT_EQ(toText(DSFAMILY_Transition), "61054A80-9662-11D0-B685-00A024191AE0");
    EXPECT_EQ(toText(DSFAMILY_Kind2), "AE0D7C33-95AA-11D0-B685-00A024191AE0");
    EXPECT_EQ(toText(DSFAMILY_Kind7), "AE0D7C34-95AA-11D0-B685-00A024191AE0");
    EXPECT_EQ(toText(DSFAMILY_List), "183E3834-D79D-11D0-A7AE-00A0C9068107");
}

}  // namespace
}  // namespace ruvex::test
