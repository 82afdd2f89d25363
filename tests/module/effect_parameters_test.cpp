// The effect's parameters as its host reads and sets them.

#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "sdk/com/com_object.h"
#include "tests/module/made_effect.h"

namespace ruvex::test {
namespace {

/// Keeps what it was told. It lives on the stack, with the reference that it starts with.
class Observer final : public ComObject<IDSPropertyObserver> {
public:
    HRESULT PropertyChanged(const GUID& id, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short classification) override {
        told.emplace_back(id, classification);
        return S_OK;
    }

    std::vector<std::pair<GUID, ULONG>> told;
};

/// An operation of the plug-in that gives every parameter its default.
void expectDefaultsBy(HRESULT (IDSPlugIn::*operation)()) {
    Renderer renderer({.width = 8, .height = 8});
    for (const ParameterRow& parameter : parameterTable()) {
        const double other = parameter.defaultValue == 0.0 ? 1.0 : 0.0;
        renderer.set(parameter.id, other);
    }
    renderer.animate(ParameterId::Blur, {{0.0, 10.0}, {1.0, 20.0}});
    const ComPtr<IDSImageEffect> effect = &renderer.session().effect();
    Observer observer;
    ULONG cookie = 0;
    ASSERT_EQ(effect.query<IDSProperties>()->Advise(&observer, &cookie), S_OK);
    EXPECT_EQ((*effect.query<IDSPlugIn>().*operation)(), S_OK);
    for (const ParameterRow& parameter : parameterTable()) {
        EXPECT_EQ(renderer.session().value(parameter.identifier, 0.5), parameter.defaultValue)
            << parameter.label;
    }
    ASSERT_EQ(observer.told.size(), 1u);
    EXPECT_EQ(observer.told[0], std::pair(GUID_AllProperties, ULONG{32768}));
    effect.query<IDSProperties>()->Unadvise(cookie);
}

TEST(Parameters, SetDefaultsResetsThemAllAndSaysSo) {
    expectDefaultsBy(&IDSPlugIn::SetDefaults);
}

TEST(Parameters, InitDoesTheSame) {
    expectDefaultsBy(&IDSPlugIn::Init);
}

void setDefaults(Renderer& renderer) {
    const ComPtr<IDSImageEffect> effect = &renderer.session().effect();
    EXPECT_EQ(effect.query<IDSPlugIn>()->SetDefaults(), S_OK);
}

TEST(Parameters, OneThatIsNotAnimatedReadsAsItsMemberAtAnyTime) {
    Renderer renderer({.width = 8, .height = 8});
    setDefaults(renderer);
    const GUID id = row(ParameterId::MasterBreakup).identifier;
    EXPECT_EQ(renderer.session().value(id, -5.0), 50.0);
    renderer.set(ParameterId::MasterBreakup, 12.5);
    EXPECT_EQ(renderer.session().value(id, 0.0), 12.5);
    EXPECT_EQ(renderer.session().value(id, 1e6), 12.5);
}

TEST(Parameters, TheHostSeesThemAsTheyAreDeclared) {
    Renderer renderer({.width = 8, .height = 8});
    setDefaults(renderer);
    for (const ParameterRow& parameter : parameterTable()) {
        const CDSParamDef* definition = renderer.session().definition(parameter.identifier);
        ASSERT_TRUE(definition) << parameter.label;
        EXPECT_EQ(definition->classification, 32768u);
        EXPECT_EQ(definition->nameId, definition->shortNameId);
        EXPECT_EQ(definition->module, builtModule()->instance());
        EXPECT_EQ(renderer.session().value(parameter.identifier), parameter.defaultValue)
            << parameter.label;
    }
    const auto definitionOf = [&](ParameterId id) {
        return *renderer.session().definition(row(id).identifier);
    };
    EXPECT_EQ(definitionOf(ParameterId::Blur).capabilities, 5u);
    EXPECT_EQ(definitionOf(ParameterId::Blur).type, 5);
    EXPECT_EQ(definitionOf(ParameterId::Seed).capabilities, 4u);
    EXPECT_EQ(definitionOf(ParameterId::Seed).type, 3);
    EXPECT_EQ(definitionOf(ParameterId::FishEye).type, 11);
    EXPECT_EQ(definitionOf(ParameterId::Presets).capabilities, 532u);
    EXPECT_EQ(definitionOf(ParameterId::HideOverlayControls).type, 11);
}

}  // namespace
}  // namespace ruvex::test
