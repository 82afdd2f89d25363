// The module's entry points called directly, and what they count.

#include <gtest/gtest.h>
#include <thread>

#include "host/base/class_ids.h"
#include "host/base/module_use.h"
#include "host/module/entry_points.h"
#include "sdk/com_ptr.h"
#include "sdk/effect.h"

namespace ruvex::test {
namespace {

constexpr GUID kUnknown = guidFromText("01234567-89AB-CDEF-0123-456789ABCDEF");

ComPtr<IClassFactory> makeFactory() {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(DllGetClassObject(kRuvexClassId, IID_IClassFactory, factory.putVoid()), S_OK);
    return factory;
}

TEST(EntryPoints, AMissingPointerIsRefusedWhateverTheClass) {
    EXPECT_EQ(DllGetClassObject(kRuvexClassId, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(DllGetClassObject(kUnknown, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(objectCount, 0);
}

TEST(EntryPoints, AnUnknownClassGivesNothing) {
    void* out = &out;
    EXPECT_EQ(DllGetClassObject(kUnknown, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
}

TEST(EntryPoints, AnUnknownInterfaceOfTheFactoryLeavesNoFactory) {
    void* out = &out;
    EXPECT_EQ(DllGetClassObject(kRuvexClassId, kUnknown, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(objectCount, 0);
}

TEST(EntryPoints, DllMainAlwaysAnswersYes) {
    for (const DWORD reason : {DLL_PROCESS_ATTACH, DLL_PROCESS_DETACH, DWORD{7}}) {
        EXPECT_EQ(DllMain(moduleInstance, reason, nullptr), TRUE);
    }
}

TEST(ObjectCount, IsTheSumOfFactoriesLocksAndObjects) {
    {
        const auto first = makeFactory();
        EXPECT_EQ(objectCount, 1);
        const auto second = makeFactory();
        EXPECT_EQ(objectCount, 2) << "each factory counts";
        first->AddRef();
        first->Release();
        EXPECT_EQ(objectCount, 2) << "references do not";
        first->LockServer(TRUE);
        second->LockServer(TRUE);
        EXPECT_EQ(objectCount, 4);
        ComPtr<IDSImageEffect> effect, clone;
        first->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
        EXPECT_EQ(objectCount, 5);
        effect->Clone(IID_IDSImageEffect, clone.putVoid());
        EXPECT_EQ(objectCount, 6);
        effect.reset();
        EXPECT_EQ(objectCount, 5) << "the clone counts for itself";
        first->LockServer(FALSE);
        second->LockServer(FALSE);
        EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    }
    EXPECT_EQ(objectCount, 0);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(ObjectCount, ALockOutlivesItsFactory) {
    makeFactory()->LockServer(TRUE);
    EXPECT_EQ(objectCount, 1);
    EXPECT_EQ(DllCanUnloadNow(), S_FALSE);
    makeFactory()->LockServer(FALSE);
    EXPECT_EQ(DllCanUnloadNow(), S_OK);
}

TEST(ObjectCount, WhatIsRefusedDoesNotCount) {
    const auto factory = makeFactory();
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, kUnknown, &out), E_NOINTERFACE);
    ComPtr<IDSImageEffect> effect;
    factory->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
    EXPECT_EQ(effect->Clone(kUnknown, &out), E_NOINTERFACE);
    EXPECT_EQ(effect->Clone(IID_IUnknown, nullptr), E_POINTER);
    EXPECT_EQ(objectCount, 2) << "the factory and the effect";
}

TEST(ObjectCount, HoldsWhenManyThreadsMakeAndReleaseAtOnce) {
    const auto shared = makeFactory();
    const auto work = [&] {
        for (int i = 0; i < 200; ++i) {
            const auto own = makeFactory();
            ComPtr<IMarshal> marshaler = shared.query<IMarshal>(IID_IMarshal);
            ComPtr<IDSImageEffect> effect, clone;
            shared->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
            effect->Clone(IID_IDSImageEffect, clone.putVoid());
            own->LockServer(TRUE);
            own->LockServer(FALSE);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i) threads.emplace_back(work);
    }
    EXPECT_EQ(objectCount, 1);
}

}  // namespace
}  // namespace ruvex::test
