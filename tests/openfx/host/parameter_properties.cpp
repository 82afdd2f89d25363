#include "tests/openfx/host/parameter_properties.h"

#include <limits>

namespace ruvex::ofxhost {
namespace {

void addLabels(PropertySet& set, const std::string& name) {
    set.add(kOfxPropLabel, text(name));
    set.add(kOfxPropShortLabel, text(name));
    set.add(kOfxPropLongLabel, text(name));
}

void addValueProperties(PropertySet& set, const std::string& type) {
    // Only numbers are animated, choices and check boxes not in this host.
    const bool animates =
        type == kOfxParamTypeDouble || type == kOfxParamTypeInteger || type == kOfxParamTypeRGB;
    set.add(kOfxParamPropAnimates, ints({animates}));
    set.add(kOfxParamPropIsAnimating, ints({0}), Writer::Host);
    set.add(kOfxParamPropIsAutoKeying, ints({0}), Writer::Host);
    set.add(kOfxParamPropPersistant, ints({1}));
    set.add(kOfxParamPropEvaluateOnChange, ints({1}));
    set.add(kOfxParamPropPluginMayWrite, ints({0}));
    set.add(kOfxParamPropCacheInvalidation, text(kOfxParamInvalidateValueChange));
    set.add(kOfxParamPropCanUndo, ints({1}));
}

template <class T>
void addLimits(PropertySet& set, std::size_t count, T low, T high) {
    const PropertyValues lows(count, low);
    const PropertyValues highs(count, high);
    set.add(kOfxParamPropMin, lows);
    set.add(kOfxParamPropMax, highs);
    set.add(kOfxParamPropDisplayMin, lows);
    set.add(kOfxParamPropDisplayMax, highs);
}

void addNumberProperties(PropertySet& set, const std::string& type) {
    const std::size_t count = numberCount(type);
    const bool real = type == kOfxParamTypeDouble || type == kOfxParamTypeRGB;
    set.add(kOfxParamPropDefault,
            PropertyValues(count, real ? PropertyValue(0.0) : PropertyValue(0)));
    constexpr double kHuge = std::numeric_limits<double>::max();
    constexpr int kMost = std::numeric_limits<int>::max();
    if (type == kOfxParamTypeDouble) {
        constexpr int kUsualDigits = 2;
        addLimits(set, count, -kHuge, kHuge);
        set.add(kOfxParamPropIncrement, reals({1.0}));
        set.add(kOfxParamPropDigits, ints({kUsualDigits}));
        set.add(kOfxParamPropDoubleType, text(kOfxParamDoubleTypePlain));
    } else if (type == kOfxParamTypeRGB) {
        addLimits(set, count, 0.0, 1.0);
    } else if (type == kOfxParamTypeInteger) {
        addLimits(set, count, -kMost, kMost);
    } else if (type == kOfxParamTypeChoice) {
        set.addGrowing(kOfxParamPropChoiceOption, PropertyType::String);
    }
}

}  // namespace

std::size_t numberCount(const std::string& type) {
    constexpr std::size_t kChannels = 3;
    if (type == kOfxParamTypeRGB) return kChannels;
    const bool one = type == kOfxParamTypeDouble || type == kOfxParamTypeInteger ||
                     type == kOfxParamTypeBoolean || type == kOfxParamTypeChoice;
    return one ? 1 : 0;
}

void addParameterProperties(PropertySet& set, const std::string& type, const std::string& name) {
    set.add(kOfxPropType, text(kOfxTypeParameter), Writer::Host);
    set.add(kOfxPropName, text(name), Writer::Host);
    set.add(kOfxParamPropType, text(type), Writer::Host);
    addLabels(set, name);
    set.add(kOfxParamPropScriptName, text(name));
    set.add(kOfxParamPropHint, text(""));
    set.add(kOfxParamPropSecret, ints({0}));
    set.add(kOfxParamPropEnabled, ints({1}));
    set.add(kOfxParamPropParent, text(""));
    if (type == kOfxParamTypeGroup) set.add(kOfxParamPropGroupOpen, ints({1}));
    if (type == kOfxParamTypePage) set.addGrowing(kOfxParamPropPageChild, PropertyType::String);
    if (type == kOfxParamTypeString) {
        set.add(kOfxParamPropDefault, text(""));
        set.add(kOfxParamPropStringMode, text("OfxParamStringIsSingleLine"));
    }
    if (type != kOfxParamTypeGroup && type != kOfxParamTypePage) addValueProperties(set, type);
    if (numberCount(type) > 0) addNumberProperties(set, type);
}

}  // namespace ruvex::ofxhost
