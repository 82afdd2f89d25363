#include "sdk/com/module_table.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"
#include "tests/support/copy_effect.h"

namespace ruvex::test {
namespace {

constexpr GUID kServed = guidFromText("77A1C003-0000-4000-8000-000000000001");
constexpr GUID kNotServed = guidFromText("77A1C003-0000-4000-8000-000000000002");

class Factory final : public ComObject<IClassFactory> {
public:
    HRESULT CreateInstance(IUnknown* outer, const GUID& id, void** out) override {
        if (outer) return CLASS_E_NOAGGREGATION;
        const auto made = ComPtr<CopyEffect>::attach(new CopyEffect);
        return made->QueryInterface(id, out);
    }
    HRESULT LockServer(BOOL) override { return S_OK; }
};

HRESULT serve(const GUID& classId, const GUID& id, void** out) {
    static Factory factory;
    *out = nullptr;
    return classId == kServed ? factory.QueryInterface(id, out) : CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT serveNothing(const GUID&, const GUID&, void** out) {
    *out = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT create(const GUID& classId, const GUID& id, void** out) {
    return CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, id, out);
}

TEST(ModuleTable, ObjectsAreMadeByTheModuleThatServesTheClass) {
    ASSERT_EQ(DSAddModule(serveNothing), S_OK);
    ASSERT_EQ(DSAddModule(serve), S_OK);
    ComPtr<IDSImageEffect> effect;
    EXPECT_EQ(create(kServed, IID_IDSImageEffect, effect.putVoid()), S_OK);
    EXPECT_TRUE(effect);
    void* out = &out;
    EXPECT_EQ(create(kNotServed, IID_IUnknown, &out), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(create(kServed, IID_IDSImage, &out), E_NOINTERFACE);
    EXPECT_EQ(CoCreateInstance(kServed, effect.get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &out),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(create(kServed, IID_IUnknown, nullptr), E_POINTER);
    DSRemoveModule(serve);
    DSRemoveModule(serveNothing);
}

TEST(ModuleTable, ModulesAreRemovedAsOftenAsTheyWereAdded) {
    EXPECT_EQ(DSRemoveModule(serve), S_FALSE);
    DSAddModule(serve);
    DSAddModule(serve);
    EXPECT_EQ(DSRemoveModule(serve), S_OK);
    ComPtr<IUnknown> object;
    EXPECT_EQ(create(kServed, IID_IUnknown, object.putVoid()), S_OK);
    EXPECT_EQ(DSRemoveModule(serve), S_OK);
    EXPECT_EQ(create(kServed, IID_IUnknown, object.putVoid()), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(DSAddModule(nullptr), E_POINTER);
}

/// Serves nothing, and looks whether it can be taken out of the table meanwhile.
HRESULT removedWhileAsked = E_UNEXPECTED;
HRESULT serveItsOwnEnd(const GUID&, const GUID&, void** out) {
    *out = nullptr;
    removedWhileAsked = DSRemoveModule(serveItsOwnEnd);
    return CLASS_E_CLASSNOTAVAILABLE;
}

TEST(ModuleTable, AModuleThatIsBeingAskedStays) {
    DSAddModule(serveItsOwnEnd);
    DSAddModule(serve);
    ComPtr<IUnknown> object;
    EXPECT_EQ(create(kServed, IID_IUnknown, object.putVoid()), S_OK) << "the walk goes on";
    EXPECT_EQ(removedWhileAsked, S_FALSE);
    EXPECT_EQ(DSRemoveModule(serveItsOwnEnd), S_OK);
    EXPECT_EQ(DSRemoveModule(serve), S_OK);
}

TEST(ModuleTable, AModuleInUseStays) {
    DSAddModule(serve);
    EXPECT_EQ(DSRemoveModule(serve, [] { return S_FALSE; }), S_FALSE);
    ComPtr<IUnknown> object;
    EXPECT_EQ(create(kServed, IID_IUnknown, object.putVoid()), S_OK);
    EXPECT_EQ(DSRemoveModule(serve, [] { return S_OK; }), S_OK);
}

std::atomic<int> inside{0};
HRESULT countThreads(const GUID&, const GUID&, void** out) {
    *out = nullptr;
    ++inside;
    std::this_thread::yield();
    --inside;
    return CLASS_E_CLASSNOTAVAILABLE;
}

TEST(ModuleTable, NoThreadIsInAModuleThatWasRemoved) {
    std::atomic<bool> stop{false};
    std::jthread asking([&] {
        void* out = nullptr;
        while (!stop) create(kServed, IID_IUnknown, &out);
    });
    for (int i = 0; i < 2000; ++i) {
        DSAddModule(countThreads);
        while (DSRemoveModule(countThreads) != S_OK) std::this_thread::yield();
        EXPECT_EQ(inside, 0);
    }
    stop = true;
}

}  // namespace
}  // namespace ruvex::test
