#include "sdk/registry.h"

#include <gtest/gtest.h>

namespace {

constexpr GUID kClass = ruvex::guidFromText("77A1C002-0000-4000-8000-000000000001");
constexpr GUID kOther = ruvex::guidFromText("77A1C002-0000-4000-8000-000000000002");
constexpr GUID kFamilies[] = {ruvex::guidFromText("77A1C002-0000-4000-8000-000000000011"),
                              ruvex::guidFromText("77A1C002-0000-4000-8000-000000000012"),
                              ruvex::guidFromText("77A1C002-0000-4000-8000-000000000013")};

class Registry : public ::testing::Test {
protected:
    void SetUp() override { DSClearRegistry(); }
    void TearDown() override { DSClearRegistry(); }
};

TEST_F(Registry, ClassesAreKeptInTheirOrder) {
    EXPECT_EQ(DSRegisterCOMEffect(kClass, nullptr, 2), S_OK);
    EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), S_OK);
    const auto classes = DSRegisteredClasses();
    ASSERT_EQ(classes.size(), 2u);
    EXPECT_EQ(classes[0].classId, kClass);
    EXPECT_EQ(classes[0].stringId, 2u);
    EXPECT_EQ(classes[1].classId, kOther);
    EXPECT_TRUE(classes[1].description.empty());
}

TEST_F(Registry, RegisteringAgainReplaces) {
    DSRegisterCOMEffect(kClass, nullptr, 2);
    DSRegisterCOMEffect(kClass, nullptr, 6);
    ASSERT_EQ(DSRegisteredClasses().size(), 1u);
    EXPECT_EQ(DSRegisteredClasses()[0].stringId, 6u);
}

TEST_F(Registry, UnregisteringWhatIsNotThereFails) {
    DSRegisterCOMEffect(kClass, nullptr, 2);
    EXPECT_EQ(DSUnregisterCOMEffect(kOther), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(DSUnregisterCOMEffect(kClass), S_OK);
    EXPECT_EQ(DSUnregisterCOMEffect(kClass), REGDB_E_CLASSNOTREG);
    EXPECT_TRUE(DSRegisteredClasses().empty());
}

TEST_F(Registry, FamiliesAreEnteredAndRemovedTogether) {
    EXPECT_EQ(DSRegisterObjectFamilies(kClass, 3, kFamilies, 1, L"Copy", nullptr), S_OK);
    const auto families = DSRegisteredFamilies();
    ASSERT_EQ(families.size(), 3u);
    EXPECT_EQ(families[2].family, kFamilies[2]);
    EXPECT_EQ(families[2].name, L"Copy");
    EXPECT_EQ(families[2].version, 1u);
    EXPECT_EQ(DSUnregisterObjectFamilies(kClass, 2, kFamilies, nullptr), S_OK);
    ASSERT_EQ(DSRegisteredFamilies().size(), 1u);
    EXPECT_EQ(DSRegisteredFamilies()[0].family, kFamilies[2]);
    EXPECT_EQ(DSUnregisterObjectFamilies(kOther, 3, kFamilies, nullptr), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(DSRegisterObjectFamilies(kClass, 3, nullptr, 1, L"Copy", nullptr), E_POINTER);
    EXPECT_EQ(DSRegisterObjectFamilies(kClass, 3, kFamilies, 1, nullptr, nullptr), E_POINTER);
}

TEST_F(Registry, TheChosenCallFailsAndNoOther) {
    DSFailRegistryCall(2, E_OUTOFMEMORY);
    EXPECT_EQ(DSRegisterCOMEffect(kClass, nullptr, 2), S_OK);
    EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), E_OUTOFMEMORY);
    EXPECT_EQ(DSRegisteredClasses().size(), 1u);
    EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), S_OK);
}

TEST_F(Registry, ClearingForgetsTheFailure) {
    DSFailRegistryCall(1, E_FAIL);
    DSClearRegistry();
    EXPECT_EQ(DSRegisterCOMEffect(kClass, nullptr, 2), S_OK);
}

}  // namespace
