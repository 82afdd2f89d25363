// What the module enters in the host's registry, and what becomes of a registration that fails.

#include <gtest/gtest.h>

#include "host/base/class_ids.h"
#include "runtime/error.h"
#include "sdk/com/dynamic_library.h"
#include "tests/effect/render_fixture.h"
#include "tests/support/scripted_registry.h"

namespace ruvex::test {
namespace {

using Call = ScriptedRegistry::Call;

struct ReleasedClass {
    const char* classId;
    UINT stringId;
    const wchar_t* description;
};

constexpr ReleasedClass kReleased[] = {
    {"A41E7F12-37AB-48B5-99C9-C4B83402C0FC", 2, L"Osterlin's Ruvex Effect"},
    {"FF17B06D-625E-467E-8781-A656F61FC4DF", 4, L"V_Ruvex's main PPG"},
    {"5D00DB8B-608B-403D-A53D-0A9FEF753796", 6, L"V_Ruvex's guns PPG"},
    {"82E8CBFA-9E51-4920-A471-A4F5249EA3B0", 8, L"V_Ruvex's 1st breakup PPG"},
    {"28D08FB3-1C11-4943-800B-C1648AC0F5A3", 10, L"V_Ruvex's 2nd breakup PPG"},
    {"A58AD5AB-4CD7-4929-8E39-3212821AABA6", 12, L"V_Ruvex's shash PPG"},
    {"D69C227D-225A-48B8-998B-9AC1F8E2154E", 14, L"V_Ruvex's effects PPG"},
    {"6EBC28D8-0306-446E-9285-F5BF7111D075", 1178, L""},
    {"633BF221-759B-4B4A-B863-64706872769D", 16, L"V_Ruvex's help PPG"},
    {"D9885DBA-EAB5-4D09-ADFE-A35A1E0693C3", 4997, L"V_Quaver's main PPG (with edge methods)"},
};
constexpr std::size_t kRows = std::size(kReleased);

constexpr const char* kReleasedFamilies[] = {
    "183E3834-D79D-11D0-A7AE-00A0C9068107", "AE0D7C31-95AA-11D0-B685-00A024191AE0",
    "AE0D7C40-95AA-11D0-B685-00A024191AE0", "95F7E8A0-8B84-11D1-94A3-00A0C911C625"};

class Registration : public testing::Test {
protected:
    static HRESULT statusOf(void (runtime::Module::*operation)() const) {
        try {
            (*builtModule().*operation)();
        } catch (const runtime::StatusError& error) {
            return error.status();
        }
        return S_OK;
    }
    static HRESULT registerAll() { return statusOf(&runtime::Module::registerClasses); }
    static HRESULT unregisterAll() { return statusOf(&runtime::Module::unregisterClasses); }

    UsedRegistry<ScriptedRegistry> used{std::make_shared<ScriptedRegistry>()};
};

TEST_F(Registration, EntersTheClassesInTheReleasedOrder) {
    EXPECT_EQ(registerAll(), S_OK);
    const auto classes = used.contents().classes;
    ASSERT_EQ(classes.size(), kRows);
    for (std::size_t i = 0; i < kRows; ++i) {
        EXPECT_EQ(toText(classes[i].classId), kReleased[i].classId);
        EXPECT_EQ(classes[i].stringId, kReleased[i].stringId);
        EXPECT_EQ(classes[i].description, kReleased[i].description);
        EXPECT_EQ(classes[i].module, builtModule()->file());
    }
}

TEST_F(Registration, EntersTheEffectsFamiliesAfterTheClasses) {
    EXPECT_EQ(registerAll(), S_OK);
    const auto families = used.contents().families;
    ASSERT_EQ(families.size(), std::size(kReleasedFamilies));
    for (std::size_t i = 0; i < families.size(); ++i) {
        EXPECT_EQ(toText(families[i].family), kReleasedFamilies[i]);
        EXPECT_EQ(families[i].classId, kRuvexClassId);
        EXPECT_EQ(families[i].name, L"V_Ruvex");
        EXPECT_EQ(families[i].version, 1u);
    }
    ASSERT_EQ(used->calls.size(), kRows + 1) << "the families are entered at one go";
    EXPECT_EQ(used->calls.back().first, Call::AddFamilies);
}

TEST_F(Registration, LeavesNothingBehind) {
    registerAll();
    EXPECT_EQ(unregisterAll(), S_OK);
    EXPECT_TRUE(used.contents().empty());
}

TEST_F(Registration, ASecondOneChangesNothing) {
    registerAll();
    const DSRegistryContents once = used.contents();
    EXPECT_EQ(registerAll(), S_OK);
    EXPECT_EQ(used.contents(), once);
}

TEST_F(Registration, StoppingAtACallLeavesWhatWasEnteredBefore) {
    for (std::size_t stop = 0; stop <= kRows; ++stop) {
        const UsedRegistry store(std::make_shared<ScriptedRegistry>());
        store->failures[stop] = REGDB_E_WRITEREGDB;
        EXPECT_EQ(registerAll(), REGDB_E_WRITEREGDB) << stop;
        EXPECT_EQ(store->calls.size(), stop + 1) << "nothing is tried after a failure";
        const DSRegistryContents left = store.contents();
        ASSERT_EQ(left.classes.size(), stop) << "and nothing is taken back";
        for (std::size_t i = 0; i < stop; ++i) {
            EXPECT_EQ(toText(left.classes[i].classId), kReleased[i].classId);
        }
        EXPECT_TRUE(left.families.empty());
    }
}

TEST_F(Registration, UnregisteringAHalfDoneOneTriesEveryRow) {
    for (std::size_t stop = 0; stop <= kRows; ++stop) {
        const UsedRegistry store(std::make_shared<ScriptedRegistry>());
        store->failures[stop] = E_FAIL;
        registerAll();
        store->calls.clear();
        store->failures.clear();
        EXPECT_EQ(unregisterAll(), REGDB_E_CLASSNOTREG) << "the families were never entered";
        EXPECT_TRUE(store.contents().empty()) << stop;
        ASSERT_EQ(store->calls.size(), kRows + 1);
        for (std::size_t i = 0; i < kRows; ++i) {
            EXPECT_EQ(store->calls[i].first, Call::RemoveClass);
            EXPECT_EQ(toText(store->calls[i].second), kReleased[i].classId);
        }
        EXPECT_EQ(store->calls.back().first, Call::RemoveFamilies);
    }
}

TEST_F(Registration, OfSeveralFailuresTheFamiliesComeFirstThenTheLastRow) {
    registerAll();
    used->calls.clear();
    used->failures = {{0, E_INVALIDARG}, {4, E_FAIL}, {kRows, E_OUTOFMEMORY}};
    EXPECT_EQ(unregisterAll(), E_OUTOFMEMORY);
    EXPECT_EQ(used.contents().classes.size(), 2u) << "a failure stops nothing";

    used->failures.clear();
    registerAll();
    used->calls.clear();
    used->failures = {{0, E_INVALIDARG}, {4, E_FAIL}};
    EXPECT_EQ(unregisterAll(), E_FAIL) << "row 4 counts before row 0";
}

}  // namespace
}  // namespace ruvex::test
