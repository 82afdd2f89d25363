// The tool in the viewer: when an effect brings it up, and when it goes. The tool of these tests is
// a plain object, which a module of the tests serves in place of the effect's own.

#include <cstring>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>

#include "effect/ruvex.h"
#include "sdk/com/com_object.h"
#include "sdk/com/module_table.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/effect/render_fixture.h"
#include "tests/support/plain_object.h"

namespace ruvex::test {
namespace {

/// Lives as long as the program.
class ToolFactory final : public ComObject<IClassFactory> {
public:
    HRESULT CreateInstance(IUnknown*, const GUID& id, void** out) override {
        if (const auto now = std::exchange(duringCreation, nullptr)) now();
        if (refuses) return E_OUTOFMEMORY;
        return ComPtr<PlainObject>::attach(new PlainObject)->QueryInterface(id, out);
    }
    HRESULT LockServer(BOOL) override { return S_OK; }

    /// Called once, while the next tool is made.
    static inline std::function<void()> duringCreation;
    static inline bool refuses = false;
};

/// Whether the tool of these tests is served; else CoCreateInstance asks the effect's module.
bool serving = false;

HRESULT serveTool(const GUID& classId, const GUID& id, void** out) {
    static ToolFactory factory;
    return serving && classId == kToolClassId ? factory.QueryInterface(id, out)
                                              : CLASS_E_CLASSNOTAVAILABLE;
}

/// Adds the module of the tests before any test loads the effect's.
class ServedFirst final : public testing::Environment {
public:
    void SetUp() override { ASSERT_EQ(DSAddModule(serveTool), S_OK); }
    void TearDown() override { DSRemoveModule(serveTool); }
};

const testing::Environment* const kServedFirst = testing::AddGlobalTestEnvironment(new ServedFirst);

class Overlay : public testing::Test {
protected:
    Overlay() {
        PlainObject::made = 0;
        serving = true;
    }
    ~Overlay() override {
        serving = false;
        ToolFactory::refuses = false;
        EXPECT_EQ(PlainObject::alive, 0);
        EXPECT_TRUE(VWControllerContexts().empty());
    }

    static ComPtr<IDSImageEffect> makeEffect(const GUID& family) {
        ComPtr<IDSImageEffect> effect;
        builtModule()
            ->classFactory(kRuvexClassId)
            ->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid());
        DSIMAGEEFFECTINFO info;
        info.family = family;
        EXPECT_EQ(effect->GetImageEffectInfo(&info), S_OK);
        return effect;
    }

    // As a page reaches it.
    static VxDsEffect& baseOf(const ComPtr<IDSImageEffect>& effect) {
        void* base = nullptr;
        EXPECT_EQ(effect->QueryInterface(kRuvexClassId, &base), S_OK);
        effect->Release();
        return *static_cast<VxDsEffect*>(base);
    }

    static std::size_t contexts() { return VWControllerContexts().size(); }

    ComPtr<IUnknown> object = runtime::makeImage(1, 1, MFIF_RGBA_RAW_32);
};

TEST_F(Overlay, ComesUpInTheViewerOfTheObject) {
    const auto effect = makeEffect(DSFAMILY_Filter);
    EXPECT_EQ(baseOf(effect).beginOverlay(object.get()), S_OK);
    ASSERT_EQ(contexts(), 1u);
    const VWContext shown = VWControllerContexts()[0];
    EXPECT_EQ(shown.type, 19u);
    EXPECT_EQ(shown.tool.get(), baseOf(effect).overlay.tool());
    EXPECT_EQ(shown.object, object);
    EXPECT_FALSE(shown.first || shown.second);
    EXPECT_EQ(shown.number, 0.0);
    baseOf(effect).endOverlay();
}

TEST_F(Overlay, ThePaintKindHasNone) {
    const auto effect = makeEffect(DSFAMILY_Paint);
    EXPECT_EQ(baseOf(effect).beginOverlay(object.get()), S_OK);
    EXPECT_EQ(PlainObject::made, 0);
    EXPECT_EQ(contexts(), 0u);
    EXPECT_FALSE(baseOf(effect).overlay.tool());
    EXPECT_EQ(baseOf(effect).overlay.users(), 0);
    baseOf(effect).endOverlay();
}

TEST_F(Overlay, EveryOtherKindHasOne) {
    const auto effect = makeEffect(DSFAMILY_WithoutInput);
    EXPECT_EQ(baseOf(effect).beginOverlay(object.get()), S_OK);
    EXPECT_EQ(PlainObject::made, 1);
    baseOf(effect).endOverlay();
}

TEST_F(Overlay, AMissingObjectIsRefusedForEveryKind) {
    for (const GUID& family : {DSFAMILY_Filter, DSFAMILY_Paint}) {
        EXPECT_EQ(baseOf(makeEffect(family)).beginOverlay(nullptr), E_POINTER);
    }
    EXPECT_EQ(PlainObject::made, 0);
}

TEST_F(Overlay, IsSharedAndGoesWithTheLastPage) {
    const auto effect = makeEffect(DSFAMILY_Filter);
    VxDsEffect& base = baseOf(effect);
    base.beginOverlay(object.get());
    EXPECT_EQ(base.beginOverlay(object.get()), S_OK);
    EXPECT_EQ(PlainObject::made, 1);
    EXPECT_EQ(contexts(), 1u);
    base.endOverlay();
    EXPECT_EQ(contexts(), 1u);
    base.endOverlay();
    EXPECT_EQ(contexts(), 0u);
    EXPECT_EQ(PlainObject::alive, 0);
    base.endOverlay();
    EXPECT_EQ(base.beginOverlay(object.get()), S_OK) << "one end too many counts for nothing";
    EXPECT_EQ(contexts(), 1u);
}

TEST_F(Overlay, GoesWithTheEffect) {
    auto effect = makeEffect(DSFAMILY_Filter);
    baseOf(effect).beginOverlay(object.get());
    baseOf(effect).beginOverlay(object.get());
    effect.reset();
    EXPECT_EQ(contexts(), 0u);
}

TEST_F(Overlay, IsNotTheClones) {
    const auto effect = makeEffect(DSFAMILY_Filter);
    baseOf(effect).beginOverlay(object.get());
    ComPtr<IDSImageEffect> clone;
    ASSERT_EQ(effect->Clone(IID_IDSImageEffect, clone.putVoid()), S_OK);
    EXPECT_FALSE(baseOf(clone).overlay.tool());
    clone.reset();
    EXPECT_EQ(contexts(), 1u);
    baseOf(effect).endOverlay();
}

TEST_F(Overlay, AToolThatCannotBeMadeIsAskedForAgainByTheNextPage) {
    const auto effect = makeEffect(DSFAMILY_Filter);
    ToolFactory::refuses = true;
    EXPECT_EQ(baseOf(effect).beginOverlay(object.get()), E_OUTOFMEMORY);
    EXPECT_EQ(contexts(), 0u);
    ToolFactory::refuses = false;
    EXPECT_EQ(baseOf(effect).beginOverlay(object.get()), S_OK);
    EXPECT_EQ(contexts(), 1u);
    baseOf(effect).endOverlay();
    EXPECT_EQ(contexts(), 1u) << "the page without the tool has closed, the other one has not";
    baseOf(effect).endOverlay();
    EXPECT_EQ(contexts(), 0u);
}

TEST_F(Overlay, APageThatOpensWhileTheToolIsMadeAddsNoSecondOne) {
    const auto effect = makeEffect(DSFAMILY_Filter);
    VxDsEffect& base = baseOf(effect);
    ToolFactory::duringCreation = [&] { base.beginOverlay(object.get()); };
    EXPECT_EQ(base.beginOverlay(object.get()), S_OK);
    EXPECT_EQ(base.overlay.users(), 2);
    EXPECT_EQ(contexts(), 1u);
    base.endOverlay();
    EXPECT_EQ(contexts(), 1u);
    base.endOverlay();
    EXPECT_EQ(contexts(), 0u);
}

TEST_F(Overlay, APageThatEndsWhileTheToolIsMadeLeavesNone) {
    const auto effect = makeEffect(DSFAMILY_Filter);
    VxDsEffect& base = baseOf(effect);
    ToolFactory::duringCreation = [&] { base.endOverlay(); };
    base.beginOverlay(object.get());
    EXPECT_EQ(base.overlay.users(), 0);
    EXPECT_FALSE(base.overlay.tool());
    EXPECT_EQ(contexts(), 0u);
}

/// Notes which of the functions of the table is called.
class NotingEffect final : public VxDsEffect {
public:
    PixelOffset frameOffset(double) override { return note("frameOffset"), PixelOffset{}; }
    void linkOverlay() override { note("linkOverlay"); }
    void pageActivated(const char*, std::int32_t, std::int32_t) override { note("pageActivated"); }
    void updateOverlay() override { note("updateOverlay"); }
    HRESULT aggregationResult() override { return note("aggregationResult"), S_OK; }
    HRESULT extraVerify() override { return note("extraVerify"), S_OK; }

    std::string called;

private:
    void note(const char* name) { called = name; }
};

TEST(VirtualTable, HasTheFunctionsInTheirPlaces) {
    NotingEffect effect;
    VxDsEffect* base = &effect;
    void** table = nullptr;
    std::memcpy(&table, static_cast<void*>(base), sizeof table);
    const char* const names[] = {"frameOffset",   "linkOverlay",       "pageActivated",
                                 "updateOverlay", "aggregationResult", "extraVerify"};
    for (std::size_t place = 0; place < std::size(names); ++place) {
        // All arguments go in registers that a function without them does not read.
        using Function = void(VxDsEffect*, const char*, std::int32_t, std::int32_t);
        Function* function = nullptr;
        std::memcpy(&function, &table[place], sizeof function);
        function(base, nullptr, 0, 0);
        EXPECT_EQ(effect.called, names[place]);
    }
}

}  // namespace
}  // namespace ruvex::test
