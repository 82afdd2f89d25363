// Running out of memory at each allocation of the class factory, of an object, of a clone and of a
// registration: a status code, nothing handed out, nothing left behind.

#include <functional>
#include <gtest/gtest.h>

#include "host/base/module_use.h"
#include "pages/resources/resources.h"
#include "parameters/parameter_table.h"
#include "sdk/effect/effect.h"
#include "sdk/effect/object_families.h"
#include "sdk/resources/resources.h"
#include "tests/module/linked_module.h"
#include "tests/support/scripted_registry.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

/// Attaches the module, whose objects are part of this program, as its loader does.
class Memory : public testing::Test {
protected:
    static void SetUpTestSuite() {
        static DSModuleInstance self{ruvexResourcesBegin, ruvexResourcesEnd};
        DllMain(&self, DLL_PROCESS_ATTACH, nullptr);
    }

    void TearDown() override { EXPECT_EQ(DllCanUnloadNow(), S_OK) << objectCount; }
};

using Make = std::function<HRESULT(void** out)>;

/// Runs `make` with its first allocation failing, then its second, and so on, until it gets by with
/// what there is. Gives the number of allocations that failed.
std::size_t failEach(const Make& make) {
    for (std::size_t failing = 1;; ++failing) {
        const std::int32_t before = objectCount;
        // Not null: null is to be written.
        void* out = &out;
        HRESULT status = S_OK;
        bool failed = false;
        {
            const FailingNew memory(failing);
            status = make(&out);
            failed = memory.failed();
        }
        const auto made = ComPtr<IUnknown>::attach(static_cast<IUnknown*>(out));
        if (!failed) {
            EXPECT_EQ(status, S_OK);
            EXPECT_TRUE(made);
            return failing - 1;
        }
        EXPECT_EQ(status, E_OUTOFMEMORY) << "allocation " << failing;
        EXPECT_FALSE(made) << "allocation " << failing;
        EXPECT_EQ(objectCount, before) << "allocation " << failing;
    }
}

TEST_F(Memory, RunsOutAtEachAllocationOfAnObject) {
    const auto factory = makeFactory();
    const auto create = [&](void** out) {
        return factory->CreateInstance(nullptr, IID_IDSImageEffect, out);
    };
    EXPECT_EQ(failEach(create), 4u)
        << "the object, its link, and the two sides of the crop box's connection";
}

TEST_F(Memory, RunsOutAtEachAllocationOfTheToolInTheViewer) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(DllGetClassObject(kToolClassId, IID_IClassFactory, factory.putVoid()), S_OK);
    const auto create = [&](void** out) {
        return factory->CreateInstance(nullptr, IID_IUnknown, out);
    };
    EXPECT_EQ(failEach(create), 4u) << "the tool, and the places of three objects in its tree";
}

TEST_F(Memory, RunsOutAtEachAllocationOfAClassFactory) {
    const auto make = [](void** out) {
        return DllGetClassObject(kRuvexClassId, IID_IClassFactory, out);
    };
    EXPECT_EQ(failEach(make), 1u);
}

TEST_F(Memory, RunsOutAtEachAllocationOfAFactorysMarshaler) {
    const auto make = [](void** out) {
        return DllGetClassObject(kRuvexClassId, IID_IMarshal, out);
    };
    EXPECT_EQ(failEach(make), 2u) << "the factory and its marshaler";
}

/// Runs an operation with each of its allocations failing in turn. It says E_OUTOFMEMORY and leaves
/// `state` alone, or makes do with less, as a sort does. Gives the number of failures.
std::size_t failEach(const std::function<HRESULT()>& operation,
                     const std::function<ULONG()>& state) {
    std::size_t failures = 0;
    for (std::size_t failing = 1;; ++failing) {
        const ULONG before = state();
        HRESULT status = S_OK;
        bool failed = false;
        {
            const FailingNew memory(failing);
            status = operation();
            failed = memory.failed();
        }
        if (status != S_OK) {
            EXPECT_TRUE(failed);
            EXPECT_EQ(status, E_OUTOFMEMORY) << "allocation " << failing;
            EXPECT_EQ(state(), before) << "allocation " << failing;
            ++failures;
        }
        if (!failed) return failures;
    }
}

/// Keys for the first few reals.
void animate(IDSProperties& properties, int wanted) {
    const DSKey keys[] = {{0.0, 1.0}, {1.0, 2.0}};
    ULONG count = 0;
    properties.GetPropertyCount(&count);
    for (ULONG i = 0; i < count && wanted > 0; ++i) {
        const CDSParamDef* definition = nullptr;
        properties.GetPropertyDef(i, &definition);
        if (!definition->animatable()) continue;
        EXPECT_EQ(properties.SetKeys(definition->id, keys, 2), S_OK);
        --wanted;
    }
}

/// An effect with all that a clone copies: keys, a name, pages.
ComPtr<IDSImageEffect> makeFullEffect() {
    ComPtr<IDSImageEffect> effect;
    makeFactory()->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
    DSIMAGEEFFECTINFO info;
    info.family = DSFAMILY_Filter;
    EXPECT_EQ(effect->GetImageEffectInfo(&info), S_OK);
    DSTOOLINFO tool;
    EXPECT_EQ(effect.query<IDSPlugIn>()->GetToolInfo(&tool), S_OK);
    animate(*effect.query<IDSProperties>(), 3);
    return effect;
}

TEST_F(Memory, RunsOutAtEachAllocationOfAClone) {
    const auto effect = makeFullEffect();
    const auto clone = [&](void** out) { return effect->Clone(IID_IDSImageEffect, out); };
    EXPECT_EQ(failEach(clone), 10u) << "the object, its link, its name, its pages, its animations "
                                       "and the keys of each, and the "
                                       "two sides of the crop box's connection";
}

TEST_F(Memory, RunsOutAtEachAllocationOfACloneAtATime) {
    const auto effect = makeFullEffect();
    const auto clone = [&](void** out) {
        return effect->CloneAtTime(0.5, IID_IDSImageEffect, out);
    };
    EXPECT_EQ(failEach(clone), 10u);
}

TEST_F(Memory, RunsOutAtEachAllocationOfARegistration) {
    std::size_t failing = 0;
    std::size_t entered = 0;
    for (bool failed = true; failed;) {
        const UsedRegistry used(DSMemoryRegistry());
        HRESULT status = S_OK;
        {
            const FailingNew memory(++failing);
            status = DllRegisterServer();
            failed = memory.failed();
        }
        EXPECT_EQ(status, failed ? E_OUTOFMEMORY : S_OK) << failing;
        // What was entered before stays, and nothing is entered without its texts.
        const DSRegistryContents left = used.contents();
        ASSERT_GE(left.classes.size(), entered) << failing;
        entered = left.classes.size();
        for (const DSRegisteredClass& entry : left.classes) {
            EXPECT_EQ(entry.description.empty(), entry.classId == kToolClassId) << failing;
        }
        EXPECT_EQ(left.families.size(), failed ? 0u : 4u) << failing;
        const HRESULT undone = DllUnregisterServer();
        EXPECT_TRUE(undone == S_OK || undone == REGDB_E_CLASSNOTREG);
        EXPECT_TRUE(used.contents().empty()) << failing;
    }
    EXPECT_GT(failing, 20u);
    EXPECT_EQ(entered, 10u);
}

/// Told on the stack; counts how often.
class Observer final : public IDSPropertyObserver {
public:
    HRESULT QueryInterface(const GUID&, void**) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }
    HRESULT PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        ++told;
        return S_OK;
    }

    ULONG references = 0;
    int told = 0;
};

/// The properties of an effect, in memory that runs out.
class MemoryOfProperties : public Memory {
protected:
    MemoryOfProperties() { renew(); }

    void renew() {
        makeFactory()->CreateInstance(nullptr, IID_IDSProperties, properties.putVoid());
    }

    void TearDown() override {
        properties.reset();
        Memory::TearDown();
    }

    ULONG keyCount() const {
        ULONG count = 0;
        EXPECT_EQ(properties->GetKeys(id, nullptr, 0, &count), S_OK);
        return count;
    }

    ComPtr<IDSProperties> properties;
    const GUID id = row(ParameterId::MasterBreakup).identifier;
};

TEST_F(MemoryOfProperties, QueriesAndPlainValuesNeedNone) {
    ULONG count = 0;
    const CDSParamDef* definition = nullptr;
    VARIANT value = DSVariantFromReal(12.5);
    Observer observer;
    ULONG cookie = 0;
    ASSERT_EQ(properties->Advise(&observer, &cookie), S_OK);
    const FailingNew memory(1);
    EXPECT_EQ(properties->GetPropertyCount(&count), S_OK);
    EXPECT_EQ(properties->GetPropertyDef(0, &definition), S_OK);
    EXPECT_EQ(properties->SetValue(id, 0.0, &value), S_OK);
    EXPECT_EQ(properties->GetValue(id, 0.0, &value), S_OK);
    EXPECT_FALSE(memory.failed()) << "neither does it to tell the observers";
    EXPECT_EQ(observer.told, 1);
    EXPECT_EQ(properties->Unadvise(cookie), S_OK);
}

TEST_F(MemoryOfProperties, RunsOutAtEachAllocationOfANewObserver) {
    Observer observer;
    ULONG cookie = 7;
    const auto advise = [&] { return properties->Advise(&observer, &cookie); };
    EXPECT_EQ(failEach(advise, [&] { return observer.references; }), 1u);
    EXPECT_EQ(observer.references, 1u);
    EXPECT_EQ(properties->Unadvise(cookie), S_OK);
}

TEST_F(MemoryOfProperties, RunsOutAtEachAllocationOfKeys) {
    const DSKey keys[] = {{0.0, 1.0}, {1.0, 2.0}};
    const auto animate = [&] { return properties->SetKeys(id, keys, 2); };
    // A new object each time, since one that was animated keeps the room for it.
    const auto renewed = [&] {
        if (keyCount() > 0) renew();
        return keyCount();
    };
    EXPECT_EQ(failEach(animate, renewed), 2u) << "the keys, and the place for their animation";
    EXPECT_EQ(keyCount(), 2u);
    const VARIANT value = DSVariantFromReal(3.0);
    const auto addKey = [&] { return properties->SetValue(id, 2.0, &value); };
    EXPECT_GE(failEach(addKey, [&] { return keyCount(); }), 2u);
    EXPECT_EQ(keyCount(), 3u);
}

TEST_F(MemoryOfProperties, RunsOutAtEachAllocationOfStates) {
    const GUID other = row(ParameterId::SnowMax).identifier;
    const GUID seedId = row(ParameterId::Seed).identifier;
    const DSKey keys[] = {{0.0, 1.0}, {1.0, 2.0}};
    const DSPropertyState states[] = {{seedId, DSVariantFromLong(77), nullptr, 0},
                                      {id, DSVariantFromReal(12.5), keys, 2}};
    const auto keysOfOther = [&] {
        ULONG count = 0;
        EXPECT_EQ(properties->GetKeys(other, nullptr, 0, &count), S_OK);
        return count;
    };
    std::size_t failures = 0;
    bool failed = true;
    for (std::size_t failing = 1; failed; ++failing) {
        renew();
        ASSERT_EQ(properties->SetKeys(other, keys, 1), S_OK);
        Observer observer;
        ULONG cookie = 0;
        ASSERT_EQ(properties->Advise(&observer, &cookie), S_OK);
        HRESULT status = S_OK;
        {
            const FailingNew memory(failing);
            status = properties->SetStates(states, 2);
            failed = memory.failed();
        }
        // A sort can do with less memory.
        const bool done = status == S_OK;
        EXPECT_TRUE(done || (failed && status == E_OUTOFMEMORY)) << failing;
        VARIANT seed{};
        EXPECT_EQ(properties->GetPlainValue(seedId, &seed), S_OK);
        EXPECT_EQ(seed.lVal == 77, done) << failing;
        EXPECT_EQ(keyCount(), done ? 2u : 0u) << failing;
        EXPECT_EQ(keysOfOther(), 1u) << failing;
        EXPECT_EQ(observer.told, done ? 1 : 0) << failing;
        failures += !done;
        EXPECT_EQ(properties->Unadvise(cookie), S_OK);
    }
    EXPECT_GE(failures, 5u) << "values, new keys, and the animation that stays";
}

TEST_F(Memory, RunsOutAtEachAllocationOfATool) {
    const auto factory = makeFactory();
    ComPtr<IDSPlugIn> plugIn;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDSPlugIn, plugIn.putVoid()), S_OK);
    DSTOOLINFO tool;
    const auto describe = [&] { return plugIn->GetToolInfo(&tool); };
    EXPECT_EQ(failEach(describe, [] { return 0u; }), 1u) << "the name";
    EXPECT_STREQ(tool.name, L"V_Ruvex");
    EXPECT_STREQ(tool.description, L"Osterlin's Ruvex Effect");
}

TEST_F(Memory, StringsNeedNone) {
    wchar_t text[1024];
    const FailingNew memory(1);
    EXPECT_GT(LoadStringW(moduleInstance, 1161, text, 1024), 100);
    EXPECT_FALSE(memory.failed());
}

TEST_F(Memory, RunsOutAtEachAllocationOfADescription) {
    DSIMAGEEFFECTINFO info;
    info.family = DSFAMILY_Filter;
    const auto factory = makeFactory();
    const auto describe = [&](void** out) {
        // A new object each time, since an effect lists its pages once.
        *out = nullptr;
        ComPtr<IDSImageEffect> effect;
        HRESULT status = factory->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
        if (SUCCEEDED(status)) status = effect->GetImageEffectInfo(&info);
        if (SUCCEEDED(status)) *out = effect.detach();
        return status;
    };
    EXPECT_GT(failEach(describe), 3u) << "the list of pages grows step by step";
}

TEST_F(Memory, ADescriptionThatFailedIsGivenTheNextTime) {
    ComPtr<IDSImageEffect> effect;
    makeFactory()->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
    DSIMAGEEFFECTINFO info;
    info.family = DSFAMILY_Filter;
    for (std::size_t failing = 1;; ++failing) {
        HRESULT status = S_OK;
        {
            const FailingNew memory(failing);
            status = effect->GetImageEffectInfo(&info);
        }
        if (status == S_OK) break;
        EXPECT_EQ(status, E_OUTOFMEMORY);
    }
    ULONG pages = 0;
    EXPECT_EQ(effect.query<IDSPlugIn>()->GetPropertyPageCount(&pages), S_OK);
    EXPECT_EQ(pages, 8u);
}

}  // namespace
}  // namespace ruvex::test
