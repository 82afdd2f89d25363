#include "tests/openfx/attack/random_setup.h"

#include "tests/openfx/noise_clip.h"

namespace ruvex::ofxhost::attack {
namespace {

PixelFormat randomFormat(RandomSource& random) {
    static constexpr const char* kDepths[] = {kOfxBitDepthByte, kOfxBitDepthShort,
                                              kOfxBitDepthFloat};
    static constexpr const char* kComponents[] = {kOfxImageComponentRGBA, kOfxImageComponentRGB,
                                                  kOfxImageComponentAlpha};
    static constexpr const char* kAlphas[] = {kOfxImageOpaque, kOfxImagePreMultiplied,
                                              kOfxImageUnPreMultiplied};
    return {random.oneOf(kDepths), random.oneOf(kComponents), random.oneOf(kAlphas)};
}

OfxRectD randomRegion(int width, int height, RandomSource& random) {
    if (!random.oneIn(8)) return {0.0, 0.0, double(width), double(height)};
    return {random.oddReal(), random.oddReal(), random.oddReal(), random.oddReal()};
}

ClipSetup randomClip(int width, int height, RandomSource& random) {
    static constexpr const char* kOrders[] = {kOfxImageFieldNone, kOfxImageFieldLower,
                                              kOfxImageFieldUpper, "Other"};
    ClipSetup clip = test::noiseClip(width, height, randomFormat(random), random.oneIn(2));
    clip.regionOfDefinition = randomRegion(width, height, random);
    clip.frameRate = usualOr(25.0, random);
    clip.pixelAspect = usualOr(1.0, random);
    clip.frameRange = {usualOr(0.0, random), usualOr(50.0, random)};
    clip.fieldOrder = random.oneOf(kOrders);
    clip.connected = !random.oneIn(20);
    clip.layout.topDown = random.oneIn(2);
    // The picture has the pixels of the clip's size at every scale.
    const auto picture = clip.picture;
    clip.picture = [picture](double time, const OfxPointD&) {
        return picture(time > 0.0 && time < 1e6 ? time : 0.0, {1.0, 1.0});
    };
    return clip;
}

OfxRectI randomWindow(RandomSource& random) {
    if (random.oneIn(6)) {
        return {random.oddWhole(), random.oddWhole(), random.oddWhole(), random.oddWhole()};
    }
    const int x = random.whole(-5, kLongestSide), y = random.whole(-5, kLongestSide);
    return {x, y, x + random.whole(-1, kLongestSide), y + random.whole(-1, kLongestSide)};
}

}  // namespace

double usualOr(double usual, RandomSource& random) {
    return random.oneIn(10) ? random.oddReal() : usual;
}

InstanceSetup randomSetup(RandomSource& random) {
    const int width = random.whole(1, kLongestSide);
    const int height = random.whole(1, kLongestSide);
    InstanceSetup setup;
    setup.project.size = {usualOr(width, random), usualOr(height, random)};
    setup.project.frameRate = usualOr(25.0, random);
    setup.project.pixelAspect = usualOr(1.0, random);
    setup.source = randomClip(width, height, random);
    return setup;
}

std::vector<double> randomNumbers(std::size_t count, RandomSource& random) {
    std::vector<double> numbers;
    for (std::size_t i = 0; i < count; ++i) {
        numbers.push_back(random.oneIn(12) ? random.oddReal() : random.part() * 120.0 - 10.0);
    }
    return numbers;
}

std::vector<Key> randomKeys(std::size_t count, RandomSource& random) {
    constexpr double kFarAway = 1e7;
    std::vector<Key> keys;
    for (int i = random.whole(1, 6); i > 0; --i) {
        const double time = random.oneIn(30) ? kFarAway * random.part() : random.whole(-20, 60);
        const auto shape = static_cast<KeyShape>(random.whole(0, 2));
        keys.push_back({time, randomNumbers(count, random), shape});
    }
    return keys;
}

double randomTime(RandomSource& random) {
    // The effect looks back over all frames before the one at hand: far ones take long.
    if (random.oneIn(1000)) return random.oddReal();
    return random.oneIn(4) ? random.part() * 65.0 - 5.0 : random.whole(-5, 60);
}

RenderArgs randomRender(RandomSource& random) {
    static constexpr const char* kFields[] = {kOfxImageFieldNone, kOfxImageFieldBoth,
                                              kOfxImageFieldLower, kOfxImageFieldUpper, "Other"};
    static constexpr double kScales[] = {1.0, 1.0, 1.0, 0.5, 0.25};
    RenderArgs args;
    args.time = randomTime(random);
    args.scale = {usualOr(random.oneOf(kScales), random), usualOr(random.oneOf(kScales), random)};
    args.field = random.oneOf(kFields);
    args.window = random.oneIn(2) ? OfxRectI{} : randomWindow(random);
    const int x = random.whole(-9, 9), y = random.whole(-9, 9);
    args.outputBounds = {x, y, x + random.whole(1, kLongestSide),
                         y + random.whole(1, kLongestSide)};
    args.format = random.oneIn(3) ? std::optional(randomFormat(random)) : std::nullopt;
    args.layout.topDown = random.oneIn(2);
    args.hasOutput = !random.oneIn(30);
    args.abortAt = random.oneIn(5) ? random.whole(0, 5) : -1;
    return args;
}

}  // namespace ruvex::ofxhost::attack
