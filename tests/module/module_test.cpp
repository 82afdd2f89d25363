// The module's entry points and class factory.

#include <gtest/gtest.h>

#include "host/base/class_ids.h"
#include "runtime/effect_session.h"
#include "runtime/error.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::test {
namespace {

constexpr GUID kUnknown = guidFromText("01234567-89AB-CDEF-0123-456789ABCDEF");

ComPtr<IClassFactory> factory() {
    return builtModule()->classFactory(kRuvexClassId);
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

TEST(Module, MakesTheEffectAndItsPages) {
    const auto module = builtModule();
    for (const GUID& id :
         {kRuvexClassId, kRuvexPageId, kGunsPageId, kBreakup1PageId, kBreakup2PageId, kShashPageId,
          kEffectsPageId, kToolClassId, kHelpPageId, kCropPageId}) {
        ComPtr<IUnknown> object;
        EXPECT_EQ(module->classFactory(id)->CreateInstance(nullptr, IID_IUnknown, object.putVoid()),
                  S_OK);
        EXPECT_FALSE(module->canUnload());
    }
    EXPECT_TRUE(module->canUnload());
}

TEST(ClassFactory, AnswersToItsInterfacesAndNoOthers) {
    const auto made = factory();
    EXPECT_TRUE(made.query<IUnknown>());
    EXPECT_TRUE(made.query<IClassFactory>());
    EXPECT_TRUE(made.query<IMarshal>()) << "it may be called from any thread";
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

}  // namespace
}  // namespace ruvex::test
