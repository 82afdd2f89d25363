// What the plug-in says about itself, through Load, Describe and Unload in any number.

#include "parameters/parameter_table.h"
#include "tests/openfx/built_plug_in.h"

namespace ruvex::ofxhost::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// All that a description has, as lines.
std::vector<std::string> linesOf(const PropertySet& set) {
    std::vector<std::string> lines;
    for (const auto& [name, property] : set.all()) {
        std::string line = name + " =";
        for (const PropertyValue& value : property.values) {
            if (const auto* text = std::get_if<std::string>(&value))
                line.append(" '").append(*text) += "'";
            if (const auto* real = std::get_if<double>(&value))
                line.append(" ") += std::to_string(*real);
            if (const auto* whole = std::get_if<int>(&value))
                line.append(" ") += std::to_string(*whole);
        }
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> linesOf(const Effect& effect) {
    std::vector<std::string> lines = linesOf(effect.properties);
    const auto append = [&](const std::string& title, const PropertySet& set) {
        lines.push_back(title);
        for (const std::string& line : linesOf(set)) lines.push_back(line);
    };
    for (const auto& clip : effect.clips()) append("clip " + clip->name(), clip->properties);
    for (const auto& parameter : effect.parameters.all()) {
        append(parameter->type() + " " + parameter->name(), parameter->properties);
    }
    return lines;
}

TEST(Describe, TheBinaryHasOnePlugIn) {
    ASSERT_EQ(builtBinary().count(), 1);
    const OfxPlugin& plugIn = *builtBinary().plugIn(0);
    EXPECT_STREQ(plugIn.pluginApi, kOfxImageEffectPluginApi);
    EXPECT_EQ(plugIn.apiVersion, 1);
    EXPECT_STREQ(plugIn.pluginIdentifier, "org.v-ruvex.television");
    EXPECT_EQ(plugIn.pluginVersionMajor, 1u);
    EXPECT_EQ(builtBinary().plugIn(1), nullptr);
    EXPECT_EQ(builtBinary().plugIn(-1), nullptr);
}

TEST(Describe, SaysWhatTheEffectIs) {
    const BuiltPlugIn built;
    ASSERT_EQ(built.prepared, kOfxStatOK);
    const PropertySet& set = built.plugIn.description()->properties;
    EXPECT_EQ(set.text(kOfxPropLabel), "V_Ruvex");
    EXPECT_EQ(set.text(kOfxImageEffectPluginPropGrouping), "Television");
    EXPECT_THAT(set.texts(kOfxImageEffectPropSupportedContexts),
                ElementsAre(kOfxImageEffectContextFilter, kOfxImageEffectContextGeneral));
    EXPECT_THAT(set.texts(kOfxImageEffectPropSupportedPixelDepths),
                ElementsAre(kOfxBitDepthByte, kOfxBitDepthShort, kOfxBitDepthFloat));
    EXPECT_EQ(set.text(kOfxImageEffectPluginRenderThreadSafety), kOfxImageEffectRenderFullySafe);
    EXPECT_EQ(set.number(kOfxImageEffectPropSupportsTiles), 0);
    EXPECT_EQ(set.number(kOfxImageEffectPropTemporalClipAccess), 1);
}

TEST(Describe, EachContextHasASourceThenAnOutput) {
    BuiltPlugIn built;
    for (const char* context : {kOfxImageEffectContextFilter, kOfxImageEffectContextGeneral}) {
        ASSERT_EQ(built.plugIn.describeInContext(context), kOfxStatOK);
        const auto& clips = built.plugIn.description(context)->clips();
        ASSERT_EQ(clips.size(), 2u);
        EXPECT_EQ(clips[0]->name(), kOfxImageEffectSimpleSourceClipName);
        EXPECT_EQ(clips[1]->name(), kOfxImageEffectOutputClipName);
        EXPECT_THAT(
            clips[0]->properties.texts(kOfxImageEffectPropSupportedComponents),
            ElementsAre(kOfxImageComponentRGBA, kOfxImageComponentRGB, kOfxImageComponentAlpha));
        EXPECT_EQ(clips[0]->properties.number(kOfxImageEffectPropTemporalClipAccess), 1);
        EXPECT_EQ(clips[0]->properties.text(kOfxImageClipPropFieldExtraction), kOfxImageFieldBoth);
    }
}

TEST(Describe, UnloadAndASecondDescriptionChangeNothing) {
    BuiltPlugIn built;
    const auto first = linesOf(*built.plugIn.description(kOfxImageEffectContextFilter));
    EXPECT_TRUE(isDone(built.plugIn.unload()));
    ASSERT_EQ(built.plugIn.prepare(), kOfxStatOK);
    EXPECT_EQ(linesOf(*built.plugIn.description(kOfxImageEffectContextFilter)), first);
    // Some hosts load and describe again for each instance, without an unload.
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(built.plugIn.prepare(), kOfxStatOK);
        EXPECT_EQ(linesOf(*built.plugIn.description(kOfxImageEffectContextFilter)), first);
        const Instance instance(built.plugIn, setupFor(noiseClip(16, 12)));
        EXPECT_TRUE(isDone(instance.status()));
    }
}

TEST(Describe, GroupsAreThePagesInTheirOrder) {
    const BuiltPlugIn built;
    std::vector<std::string> groups;
    std::vector<int> open;
    for (const auto& parameter :
         built.plugIn.description(kOfxImageEffectContextFilter)->parameters.all()) {
        if (!parameter->isType(kOfxParamTypeGroup)) {
            EXPECT_FALSE(parameter->properties.text(kOfxParamPropParent).empty())
                << parameter->name();
            continue;
        }
        groups.push_back(parameter->properties.text(kOfxPropLabel));
        open.push_back(parameter->properties.number(kOfxParamPropGroupOpen));
    }
    EXPECT_THAT(groups, ElementsAre("Main", "Guns", "Breakup 1", "Breakup 2", "Shash", "Effects",
                                    "Cropping", "Help", "Host"));
    EXPECT_THAT(open, ElementsAre(1, 0, 0, 0, 0, 0, 0, 0, 0));
}

/// The parameter for a row: by its label, or that of the colour that the row is a channel of.
const Parameter* parameterFor(const ParameterSet& set, const ParameterRow& row) {
    for (const auto& parameter : set.all()) {
        const std::string label = parameter->properties.text(kOfxPropLabel);
        const bool colour = parameter->isType(kOfxParamTypeRGB);
        if (label == row.label) return parameter.get();
        if (colour && row.label.starts_with(label + " ")) return parameter.get();
    }
    return nullptr;
}

TEST(Describe, EachRenderedRowHasAParameterWithItsDefaultAndRange) {
    const BuiltPlugIn built;
    const ParameterSet& set = built.plugIn.description(kOfxImageEffectContextFilter)->parameters;
    for (const ParameterRow& row : parameterTable()) {
        const Parameter* parameter = parameterFor(set, row);
        if (!row.rendered && !parameter) continue;
        ASSERT_NE(parameter, nullptr) << row.label;
        const PropertySet& properties = parameter->properties;
        if (parameter->isType(kOfxParamTypeRGB)) continue;
        EXPECT_EQ(properties.number(kOfxParamPropAnimates), isReal(row.kind)) << row.label;
        if (!isReal(row.kind)) {
            EXPECT_EQ(properties.number(kOfxParamPropDefault), row.defaultInt()) << row.label;
            continue;
        }
        ASSERT_TRUE(parameter->isType(kOfxParamTypeDouble)) << row.label;
        EXPECT_EQ(properties.real(kOfxParamPropDefault), row.defaultValue) << row.label;
        EXPECT_EQ(properties.real(kOfxParamPropMin), row.enteredRange()->low) << row.label;
        EXPECT_EQ(properties.real(kOfxParamPropMax), row.enteredRange()->high) << row.label;
        EXPECT_EQ(properties.real(kOfxParamPropDisplayMax), row.controlRange->high) << row.label;
        EXPECT_EQ(properties.text(kOfxParamPropHint), row.hint) << row.label;
    }
}

TEST(Describe, ChoicesHaveTheLabelsOfTheirRows) {
    const BuiltPlugIn built;
    const ParameterSet& set = built.plugIn.description(kOfxImageEffectContextFilter)->parameters;
    for (const ParameterRow& row : parameterTable()) {
        if (row.choices.empty() || !row.rendered) continue;
        const auto options = parameterFor(set, row)->properties.texts(kOfxParamPropChoiceOption);
        ASSERT_EQ(options.size(), row.choices.size()) << row.label;
        for (std::size_t i = 0; i < options.size(); ++i) {
            EXPECT_EQ(options[i], row.choices[i].label);
        }
    }
}

TEST(Describe, AHostThatLacksSuitesIsToldSo) {
    for (const char* suite : {kOfxPropertySuite, kOfxImageEffectSuite, kOfxParameterSuite}) {
        HostTraits traits;
        traits.missingSuites = {suite};
        const BuiltPlugIn built(traits);
        EXPECT_EQ(built.prepared, kOfxStatErrMissingHostFeature) << suite;
    }
    for (const char* suite : {kOfxMessageSuite, kOfxInteractSuite}) {
        HostTraits traits;
        traits.missingSuites = {suite};
        const BuiltPlugIn built(traits);
        EXPECT_EQ(built.prepared, kOfxStatOK) << suite;
    }
}

// A host may not know a property. Which ones are needed to describe an effect at all is small.
TEST(Describe, PropertiesThatAHostRefusesAreLeftOut) {
    const BuiltPlugIn complete;
    std::set<std::string> names;
    for (const auto& [name, property] : complete.plugIn.description()->properties.all()) {
        names.insert(name);
    }
    for (const auto& parameter :
         complete.plugIn.description(kOfxImageEffectContextFilter)->parameters.all()) {
        for (const auto& [name, property] : parameter->properties.all()) names.insert(name);
    }
    const std::set<std::string> needed = {kOfxImageEffectPropSupportedContexts,
                                          kOfxImageEffectPropSupportedPixelDepths,
                                          kOfxParamPropChoiceOption};
    for (const std::string& name : names) {
        HostTraits traits;
        traits.missingProperties = {name};
        const BuiltPlugIn built(traits);
        EXPECT_EQ(built.prepared,
                  needed.contains(name) ? kOfxStatErrMissingHostFeature : kOfxStatOK)
            << name;
    }
}

}  // namespace
}  // namespace ruvex::ofxhost::test
