#include <gtest/gtest.h>

#include "adapters/openfx/plug_in.h"

namespace {

/// A host with the suites whose names are given.
struct SuiteHost {
    const OfxPropertySuiteV1* property = nullptr;
    const OfxImageEffectSuiteV1* effect = nullptr;
    const OfxParameterSuiteV1* parameter = nullptr;
};
SuiteHost& suiteHost() {
    static SuiteHost only;
    return only;
}

const void* fetchSuite(OfxPropertySetHandle, const char* name, int version) {
    const std::string_view wanted(name);
    if (version != 1) return nullptr;
    if (wanted == kOfxPropertySuite) return suiteHost().property;
    if (wanted == kOfxImageEffectSuite) return suiteHost().effect;
    return wanted == kOfxParameterSuite ? suiteHost().parameter : nullptr;
}

OfxStatus act(const char* action, const void* handle = nullptr) {
    return OfxGetPlugin(0)->mainEntry(action, handle, nullptr, nullptr);
}

TEST(OpenFxLoad, ThereIsOnePlugIn) {
    EXPECT_EQ(OfxGetNumberOfPlugins(), 1);
    EXPECT_EQ(OfxGetPlugin(1), nullptr);
    EXPECT_EQ(OfxGetPlugin(-1), nullptr);
    const OfxPlugin& plugIn = *OfxGetPlugin(0);
    EXPECT_STREQ(plugIn.pluginApi, "OfxImageEffectPluginAPI");
    EXPECT_EQ(plugIn.apiVersion, 1);
    EXPECT_STREQ(plugIn.pluginIdentifier, "org.v-ruvex.television");
    EXPECT_EQ(plugIn.pluginVersionMajor, 1u);
    EXPECT_EQ(plugIn.pluginVersionMinor, 0u);
}

TEST(OpenFxLoad, WithoutSuitesItFails) {
    OfxGetPlugin(0)->setHost(nullptr);
    EXPECT_EQ(act(kOfxActionLoad), kOfxStatErrMissingHostFeature);
    OfxHost host{nullptr, nullptr};
    EXPECT_EQ(OfxSetHost(&host), kOfxStatOK);
    EXPECT_EQ(act(kOfxActionLoad), kOfxStatErrMissingHostFeature);
    host.fetchSuite = fetchSuite;
    EXPECT_EQ(act(kOfxActionLoad), kOfxStatErrMissingHostFeature);
    // Suites without functions are none.
    const OfxPropertySuiteV1 property{};
    const OfxImageEffectSuiteV1 effect{};
    const OfxParameterSuiteV1 parameter{};
    suiteHost() = {&property, &effect, &parameter};
    EXPECT_EQ(act(kOfxActionLoad), kOfxStatErrMissingHostFeature);
    suiteHost() = {};
    OfxSetHost(nullptr);
}

TEST(OpenFxLoad, CallsInTheWrongOrderHaveAnAnswer) {
    int object = 0;
    EXPECT_EQ(act(nullptr), kOfxStatErrValue);
    EXPECT_EQ(act("OfxActionOfTheFuture"), kOfxStatReplyDefault);
    EXPECT_EQ(act(kOfxImageEffectActionIsIdentity, &object), kOfxStatReplyDefault);
    EXPECT_EQ(act(kOfxActionDescribe, &object), kOfxStatErrMissingHostFeature);
    EXPECT_EQ(act(kOfxImageEffectActionRender, &object), kOfxStatErrMissingHostFeature);
    EXPECT_EQ(act(kOfxActionUnload), kOfxStatOK);
    EXPECT_EQ(act(kOfxActionUnload), kOfxStatOK);
    EXPECT_EQ(act(kOfxActionPurgeCaches), kOfxStatOK);
}

}  // namespace
