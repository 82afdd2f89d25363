// The module's entry points called directly, and what they count.

#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <thread>

#include "host/base/module_use.h"
#include "host/module/class_factory.h"
#include "sdk/effect/effect.h"
#include "tests/module/linked_module.h"
#include "tests/support/plain_object.h"

namespace ruvex::test {
namespace {

constexpr GUID kUnknown = guidFromText("01234567-89AB-CDEF-0123-456789ABCDEF");

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

class PlainFactory : public testing::Test {
protected:
    ~PlainFactory() override {
        PlainObject::constructing = nullptr;
        EXPECT_EQ(PlainObject::alive, 0);
    }

    HRESULT make(IUnknown* outer = nullptr) {
        void* out = &out;
        const HRESULT status = factory->CreateInstance(outer, IID_IUnknown, &out);
        const auto made = ComPtr<IUnknown>::attach(static_cast<IUnknown*>(out));
        EXPECT_EQ(static_cast<bool>(made), status == S_OK);
        return status;
    }

    using Factory = CDsClassFactory<PlainObject, IUnknown>;
    ComPtr<Factory> factory = ComPtr<Factory>::attach(new Factory);
};

TEST_F(PlainFactory, RefusesAggregationForEveryClass) {
    EXPECT_EQ(make(), S_OK);
    EXPECT_EQ(make(factory.get()), CLASS_E_NOAGGREGATION);
}

TEST_F(PlainFactory, AnObjectMayAskForAnotherOfItsClassWhileItIsMade) {
    HRESULT inner = E_UNEXPECTED;
    PlainObject::constructing = [&] {
        PlainObject::constructing = nullptr;
        inner = make();
    };
    EXPECT_EQ(make(), S_OK);
    EXPECT_EQ(inner, S_OK);
}

TEST_F(PlainFactory, NothingIsThrownAcrossIt) {
    PlainObject::constructing = [] { throw std::bad_alloc(); };
    EXPECT_EQ(make(), E_OUTOFMEMORY);
    PlainObject::constructing = [] { throw std::runtime_error("another failure"); };
    EXPECT_EQ(make(), E_FAIL);
}

TEST(Marshaler, IsMadeOnceAndBelongsToItsFactory) {
    const auto factory = makeFactory();
    const auto marshaler = factory.query<IMarshal>();
    ASSERT_TRUE(marshaler);
    EXPECT_EQ(factory.query<IMarshal>(), marshaler);
    EXPECT_EQ(marshaler.query<IUnknown>(), factory.query<IUnknown>());
    const ULONG before = factory->AddRef();
    const auto another = factory.query<IMarshal>();
    EXPECT_EQ(factory->AddRef(), before + 2) << "a marshaler counts as one reference";
    factory->Release();
    factory->Release();
    EXPECT_EQ(objectCount, 1);
}

/// Keeps how many things of the module lived when it was let go.
class LastObserver final : public IDSPropertyObserver {
public:
    HRESULT QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return 1; }
    ULONG Release() override {
        countAtRelease = objectCount;
        return 1;
    }
    HRESULT PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        return S_OK;
    }

    std::int32_t countAtRelease = 0;
};

TEST(ObjectCount, HoldsUntilTheEffectHasLetItsObserversGo) {
    LastObserver observer;
    ComPtr<IDSProperties> effect;
    makeFactory()->CreateInstance(nullptr, IID_IDSProperties, effect.putVoid());
    ULONG cookie = 0;
    ASSERT_EQ(effect->Advise(&observer, &cookie), S_OK);
    effect.reset();
    EXPECT_EQ(observer.countAtRelease, 1) << "the module must not go while an observer is told";
    EXPECT_EQ(objectCount, 0);
}

TEST(ObjectCount, HoldsWhenManyThreadsMakeAndReleaseAtOnce) {
    const auto shared = makeFactory();
    const auto work = [&] {
        for (int i = 0; i < 200; ++i) {
            const auto own = makeFactory();
            ComPtr<IMarshal> marshaler = shared.query<IMarshal>();
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
