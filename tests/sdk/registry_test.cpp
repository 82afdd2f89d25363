#include "sdk/registry/registry.h"

#include <gtest/gtest.h>

#include "tests/support/scripted_registry.h"

namespace ruvex::test {
namespace {

constexpr GUID kClass = guidFromText("77A1C002-0000-4000-8000-000000000001");
constexpr GUID kOther = guidFromText("77A1C002-0000-4000-8000-000000000002");
constexpr GUID kFamilies[] = {guidFromText("77A1C002-0000-4000-8000-000000000011"),
                              guidFromText("77A1C002-0000-4000-8000-000000000012"),
                              guidFromText("77A1C002-0000-4000-8000-000000000013")};

class Registry : public ::testing::Test {
protected:
    UsedRegistry<ScriptedRegistry> used{std::make_shared<ScriptedRegistry>()};

    auto classes() const { return used.contents().classes; }
    auto families() const { return used.contents().families; }
};

TEST_F(Registry, ClassesAreKeptInTheirOrder) {
    EXPECT_EQ(DSRegisterCOMEffect(kClass, nullptr, 2), S_OK);
    EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), S_OK);
    ASSERT_EQ(classes().size(), 2u);
    EXPECT_EQ(classes()[0].classId, kClass);
    EXPECT_EQ(classes()[0].stringId, 2u);
    EXPECT_EQ(classes()[1].classId, kOther);
    EXPECT_TRUE(classes()[1].description.empty());
}

TEST_F(Registry, RegisteringAgainReplacesInPlace) {
    DSRegisterCOMEffect(kClass, nullptr, 2);
    DSRegisterCOMEffect(kOther, nullptr, 4);
    DSRegisterCOMEffect(kClass, nullptr, 6);
    ASSERT_EQ(classes().size(), 2u);
    EXPECT_EQ(classes()[0].stringId, 6u);
}

TEST_F(Registry, UnregisteringWhatIsNotThereFails) {
    DSRegisterCOMEffect(kClass, nullptr, 2);
    EXPECT_EQ(DSUnregisterCOMEffect(kOther), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(DSUnregisterCOMEffect(kClass), S_OK);
    EXPECT_EQ(DSUnregisterCOMEffect(kClass), REGDB_E_CLASSNOTREG);
    EXPECT_TRUE(classes().empty());
}

TEST_F(Registry, FamiliesAreEnteredAndRemovedTogether) {
    EXPECT_EQ(DSRegisterObjectFamilies(kClass, 3, kFamilies, 1, L"Copy", nullptr), S_OK);
    ASSERT_EQ(families().size(), 3u);
    EXPECT_EQ(families()[2], (DSRegisteredFamily{kClass, kFamilies[2], 1, L"Copy"}));
    EXPECT_EQ(DSUnregisterObjectFamilies(kClass, 2, kFamilies, nullptr), S_OK);
    ASSERT_EQ(families().size(), 1u);
    EXPECT_EQ(families()[0].family, kFamilies[2]);
    EXPECT_EQ(DSUnregisterObjectFamilies(kOther, 3, kFamilies, nullptr), REGDB_E_CLASSNOTREG);
}

TEST_F(Registry, FamiliesThatAreEnteredAgainAreReplaced) {
    DSRegisterObjectFamilies(kClass, 3, kFamilies, 1, L"Copy", nullptr);
    DSRegisterObjectFamilies(kOther, 1, kFamilies, 1, L"Other", nullptr);
    DSRegisterObjectFamilies(kClass, 1, kFamilies, 2, L"Again", nullptr);
    ASSERT_EQ(families().size(), 4u);
    EXPECT_EQ(families()[3], (DSRegisteredFamily{kClass, kFamilies[0], 2, L"Again"}));
}

TEST_F(Registry, MissingPointersAreRefusedBeforeTheStoreIsAsked) {
    EXPECT_EQ(DSRegisterObjectFamilies(kClass, 3, nullptr, 1, L"Copy", nullptr), E_POINTER);
    EXPECT_EQ(DSRegisterObjectFamilies(kClass, 3, kFamilies, 1, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(DSUnregisterObjectFamilies(kClass, 3, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(DSReadRegistry(nullptr), E_POINTER);
    EXPECT_TRUE(used->calls.empty());
}

TEST_F(Registry, AnswersWhatTheStoreAnswers) {
    used->failures[1] = REGDB_E_WRITEREGDB;
    EXPECT_EQ(DSRegisterCOMEffect(kClass, nullptr, 2), S_OK);
    EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), REGDB_E_WRITEREGDB);
    DSRegistryContents all;
    EXPECT_EQ(DSReadRegistry(&all), S_OK);
    EXPECT_EQ(all.classes.size(), 1u);
    EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), S_OK);
}

TEST_F(Registry, AnotherStoreHoldsOtherEntries) {
    DSRegisterCOMEffect(kClass, nullptr, 2);
    {
        const UsedRegistry other(DSMemoryRegistry());
        EXPECT_TRUE(other.contents().empty());
        EXPECT_EQ(DSRegisterCOMEffect(kOther, nullptr, 4), S_OK);
        EXPECT_EQ(other.contents().classes.size(), 1u);
    }
    ASSERT_EQ(classes().size(), 1u);
    EXPECT_EQ(classes()[0].classId, kClass);
}

}  // namespace
}  // namespace ruvex::test
