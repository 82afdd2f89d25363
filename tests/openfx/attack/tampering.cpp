#include "tests/openfx/attack/tampering.h"

#include <iterator>

namespace ruvex::ofxhost::attack {
namespace {

/// Properties whose values tell where pixels are, or which of them may be written.
bool concernsMemory(const std::string& name) {
    return name == kOfxImagePropData || name == kOfxImagePropBounds ||
           name == kOfxImagePropRowBytes || name == kOfxImageEffectPropPixelDepth ||
           name == kOfxImageEffectPropComponents || name == kOfxImageEffectPropRenderWindow;
}

void removeOrRetype(PropertySet& set, const std::string& name, RandomSource& random) {
    if (random.oneIn(2)) return set.remove(name);
    Property& property = *set.find(name);
    property.type = static_cast<PropertyType>(random.whole(0, 3));
    for (PropertyValue& value : property.values) value = random.oddValue(property.type);
}

void changeCount(Property& property, RandomSource& random) {
    const auto count = static_cast<std::size_t>(random.whole(0, 5));
    while (property.values.size() < count)
        property.values.push_back(random.oddValue(property.type));
    property.values.resize(count);
}

void changeBounds(PropertySet& set, RandomSource& random) {
    const int width = set.number(kOfxImagePropBounds, 2) - set.number(kOfxImagePropBounds, 0);
    const int height = set.number(kOfxImagePropBounds, 3) - set.number(kOfxImagePropBounds, 1);
    if (random.oneIn(4)) {
        set.set(kOfxImagePropData, {PropertyValue(static_cast<void*>(nullptr))});
        return set.set(kOfxImagePropBounds, ints({random.oddWhole(), random.oddWhole(),
                                                  random.oddWhole(), random.oddWhole()}));
    }
    const int x = random.whole(-30, 30);
    const int y = random.whole(-30, 30);
    set.set(kOfxImagePropBounds,
            ints({x, y, x + random.whole(-1, width), y + random.whole(-1, height)}));
}

/// Only forms with pixels of the same size or a smaller one.
void changeForm(PropertySet& set, RandomSource& random) {
    static constexpr const char* kSmaller[] = {kOfxImageComponentRGB, kOfxImageComponentAlpha,
                                               kOfxImageComponentNone, "", "Other"};
    const bool rgba = set.text(kOfxImageEffectPropComponents) == kOfxImageComponentRGBA;
    if (rgba && random.oneIn(2)) {
        return set.set(kOfxImageEffectPropComponents, text(random.oneOf(kSmaller)));
    }
    static constexpr const char* kDepths[] = {kOfxBitDepthByte, kOfxBitDepthNone, "", "Other"};
    set.set(kOfxImageEffectPropPixelDepth, text(random.oneOf(kDepths)));
}

void tamperWithImage(PropertySet& set, RandomSource& random) {
    switch (random.whole(0, 4)) {
        case 0:
            return set.set(kOfxImagePropData, {PropertyValue(static_cast<void*>(nullptr))});
        case 1:
            return set.set(kOfxImagePropRowBytes,
                           ints({set.number(kOfxImagePropRowBytes) * random.whole(0, 1) / 2}));
        case 2:
            return changeBounds(set, random);
        case 3:
            return changeForm(set, random);
        default:
            static constexpr const char* kNames[] = {
                kOfxImagePropData, kOfxImagePropBounds, kOfxImagePropRowBytes,
                kOfxImageEffectPropPixelDepth, kOfxImageEffectPropComponents};
            set.remove(random.oneOf(kNames));
    }
}

}  // namespace

void tamperWith(PropertySet& set, RandomSource& random) {
    if (set.all().empty()) return;
    if (set.text(kOfxPropType) == kOfxTypeImage && random.oneIn(2)) {
        return tamperWithImage(set, random);
    }
    const auto chosen =
        std::next(set.all().begin(), random.whole(0, static_cast<int>(set.all().size()) - 1));
    const std::string name = chosen->first;
    if (concernsMemory(name)) {
        if (name == kOfxImageEffectPropRenderWindow) set.remove(name);
        return;
    }
    if (random.oneIn(3)) return removeOrRetype(set, name, random);
    Property& property = *set.find(name);
    if (random.oneIn(2)) return changeCount(property, random);
    for (PropertyValue& value : property.values) value = random.oddValue(property.type);
}

}  // namespace ruvex::ofxhost::attack
