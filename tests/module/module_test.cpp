// The module's entry points and class factory.

#include <gtest/gtest.h>

#include "runtime/effect_session.h"
#include "runtime/error.h"
#include "sdk/registry.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {
namespace {

constexpr GUID kUnknown = guidFromText("01234567-89AB-CDEF-0123-456789ABCDEF");

ComPtr<IClassFactory> factory() {
    return builtModule()->classFactory(runtime::kRuvexClassId);
}

TEST(Module, CanBeUnloadedOnlyWhenNothingOfItLives) {
    const auto module = builtModule();
    EXPECT_TRUE(module->canUnload());
    {
        const auto made = factory();
        EXPECT_FALSE(module->canUnload()) << "a factory lives";
    }
    EXPECT_TRUE(module->canUnload());
}

TEST(Module, ALockKeepsItLoaded) {
    const auto module = builtModule();
    factory()->LockServer(TRUE);
    EXPECT_FALSE(module->canUnload());
    factory()->LockServer(FALSE);
    EXPECT_TRUE(module->canUnload());
}

TEST(Module, ACloneKeepsItLoadedAfterItsSource) {
    const auto module = builtModule();
    ComPtr<IDSImageEffect> clone;
    {
        ComPtr<IDSImageEffect> effect;
        ASSERT_EQ(factory()->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid()), S_OK);
        ASSERT_EQ(effect->Clone(IID_IDSImageEffect, clone.putVoid()), S_OK);
    }
    EXPECT_FALSE(module->canUnload());
    clone.reset();
    EXPECT_TRUE(module->canUnload());
}

TEST(Module, AnUnknownClassIsNotAvailable) {
    EXPECT_THROW(builtModule()->classFactory(kUnknown), runtime::StatusError);
    try {
        builtModule()->classFactory(kUnknown);
    } catch (const runtime::StatusError& error) {
        EXPECT_EQ(error.status(), CLASS_E_CLASSNOTAVAILABLE);
    }
}

TEST(ClassFactory, AnswersToItsInterfacesAndNoOthers) {
    const auto made = factory();
    EXPECT_TRUE(made.query<IUnknown>(IID_IUnknown));
    EXPECT_TRUE(made.query<IClassFactory>(IID_IClassFactory));
    EXPECT_TRUE(made.query<IMarshal>(IID_IMarshal)) << "it may be called from any thread";
    void* out = &out;
    EXPECT_EQ(made->QueryInterface(kUnknown, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(made->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(ClassFactory, RefusesAggregation) {
    const auto made = factory();
    void* out = &out;
    EXPECT_EQ(made->CreateInstance(made.get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
}

TEST(ClassFactory, RefusesAMissingPointerAndAnUnknownInterface) {
    const auto made = factory();
    EXPECT_EQ(made->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    void* out = &out;
    EXPECT_EQ(made->CreateInstance(nullptr, kUnknown, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(ClassFactory, AFailedCreationLeavesNothingBehind) {
    const auto module = builtModule();
    {
        const auto made = factory();
        void* out = nullptr;
        made->CreateInstance(made.get(), IID_IUnknown, &out);
        made->CreateInstance(nullptr, kUnknown, &out);
    }
    EXPECT_TRUE(module->canUnload());
}

class Registration : public testing::Test {
protected:
    Registration() { DSClearRegistry(); }
    ~Registration() override { DSClearRegistry(); }
};

TEST_F(Registration, EntersTheClassAndItsFamilies) {
    builtModule()->registerClasses();
    const auto classes = DSRegisteredClasses();
    ASSERT_EQ(classes.size(), 1u);
    EXPECT_EQ(classes[0].classId, runtime::kRuvexClassId);
    EXPECT_EQ(classes[0].stringId, 2u);
    EXPECT_EQ(classes[0].description, L"Osterlin's Ruvex Effect");
    const auto families = DSRegisteredFamilies();
    ASSERT_EQ(families.size(), 4u);
    EXPECT_EQ(families[0].family, guidFromText("183E3834-D79D-11D0-A7AE-00A0C9068107"));
    EXPECT_EQ(families[1].family, guidFromText("AE0D7C31-95AA-11D0-B685-00A024191AE0"));
    EXPECT_EQ(families[2].family, guidFromText("AE0D7C40-95AA-11D0-B685-00A024191AE0"));
    EXPECT_EQ(families[3].family, guidFromText("95F7E8A0-8B84-11D1-94A3-00A0C911C625"));
    EXPECT_EQ(families[0].name, L"V_Ruvex");
    EXPECT_EQ(families[0].version, 1u);

    builtModule()->unregisterClasses();
    EXPECT_TRUE(DSRegisteredClasses().empty());
    EXPECT_TRUE(DSRegisteredFamilies().empty());
}

TEST_F(Registration, StoppingHalfWayLeavesWhatWasEntered) {
    DSFailRegistryCall(2, E_FAIL);  // the families
    EXPECT_THROW(builtModule()->registerClasses(), runtime::StatusError);
    EXPECT_EQ(DSRegisteredClasses().size(), 1u);
    EXPECT_TRUE(DSRegisteredFamilies().empty());
}

TEST_F(Registration, UnregisteringAHalfDoneRegistrationTriesEverythingAndSaysWhatFailed) {
    DSFailRegistryCall(2, E_FAIL);
    EXPECT_THROW(builtModule()->registerClasses(), runtime::StatusError);
    EXPECT_THROW(builtModule()->unregisterClasses(), runtime::StatusError);
    EXPECT_TRUE(DSRegisteredClasses().empty()) << "the class is gone though the families failed";
}

}  // namespace
}  // namespace ruvex::test
