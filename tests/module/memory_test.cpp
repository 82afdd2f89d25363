// Running out of memory at each allocation of the class factory, of an object, of a clone and of a
// registration: a status code, nothing handed out, nothing left behind.

#include <functional>
#include <gtest/gtest.h>

#include "host/base/class_ids.h"
#include "host/base/module_use.h"
#include "host/module/entry_points.h"
#include "pages/resources/resources.h"
#include "sdk/com_ptr.h"
#include "sdk/effect.h"
#include "tests/support/scripted_registry.h"
#include "tests/support/watched_new.h"

namespace ruvex::test {
namespace {

constexpr GUID kFilterFamily = guidFromText("AE0D7C31-95AA-11D0-B685-00A024191AE0");

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
        void* out = nullptr;
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

ComPtr<IClassFactory> makeFactory() {
    ComPtr<IClassFactory> factory;
    EXPECT_EQ(DllGetClassObject(kRuvexClassId, IID_IClassFactory, factory.putVoid()), S_OK);
    return factory;
}

TEST_F(Memory, RunsOutAtEachAllocationOfAnObject) {
    const auto factory = makeFactory();
    const auto create = [&](void** out) {
        return factory->CreateInstance(nullptr, IID_IDSImageEffect, out);
    };
    EXPECT_EQ(failEach(create), 2u) << "the object and its link";
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
    info.family = kFilterFamily;
    EXPECT_EQ(effect->GetImageEffectInfo(&info), S_OK);
    DSTOOLINFO tool;
    EXPECT_EQ(effect.query<IDSPlugIn>(IID_IDSPlugIn)->GetToolInfo(&tool), S_OK);
    animate(*effect.query<IDSProperties>(IID_IDSProperties), 3);
    return effect;
}

TEST_F(Memory, RunsOutAtEachAllocationOfAClone) {
    const auto effect = makeFullEffect();
    const auto clone = [&](void** out) { return effect->Clone(IID_IDSImageEffect, out); };
    EXPECT_EQ(failEach(clone), 8u)
        << "the object, its link, its name, its pages, its animations and the keys of each";
}

TEST_F(Memory, RunsOutAtEachAllocationOfACloneAtATime) {
    const auto effect = makeFullEffect();
    const auto clone = [&](void** out) {
        return effect->CloneAtTime(0.5, IID_IDSImageEffect, out);
    };
    EXPECT_EQ(failEach(clone), 8u);
}

TEST_F(Memory, RunsOutAtEachAllocationOfARegistration) {
    std::size_t failing = 0;
    for (bool failed = true; failed;) {
        const UsedRegistry used(DSMemoryRegistry());
        HRESULT status = S_OK;
        {
            const FailingNew memory(++failing);
            status = DllRegisterServer();
            failed = memory.failed();
        }
        const DSRegistryContents left = used.contents();
        // A string that cannot be read for want of memory is as one that is missing.
        if (status == S_OK)
            EXPECT_EQ(left.families.size(), 4u) << failing;
        else
            EXPECT_EQ(status, E_OUTOFMEMORY) << failing;
        const HRESULT undone = DllUnregisterServer();
        EXPECT_TRUE(undone == S_OK || undone == REGDB_E_CLASSNOTREG);
        EXPECT_TRUE(used.contents().empty()) << failing;
    }
    EXPECT_GT(failing, 20u);
}

TEST_F(Memory, RunsOutAtEachAllocationOfADescription) {
    DSIMAGEEFFECTINFO info;
    info.family = kFilterFamily;
    const auto factory = makeFactory();
    const auto describe = [&](void** out) {
        // A new object each time, since an effect lists its pages once.
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
    info.family = kFilterFamily;
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
    EXPECT_EQ(effect.query<IDSPlugIn>(IID_IDSPlugIn)->GetPropertyPageCount(&pages), S_OK);
    EXPECT_EQ(pages, 8u);
}

}  // namespace
}  // namespace ruvex::test
