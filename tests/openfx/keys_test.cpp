// Curves of the host against keys of `ruvex render`.

#include <cmath>

#include "tests/openfx/built_plug_in.h"
#include "tests/openfx/reference_clip.h"

namespace ruvex::ofxhost::test {
namespace {

constexpr int kCurveFrames = 24;
constexpr double kRate = 30.0;

ClipSetup clipWithKeys() {
    ClipSetup clip = noiseClip(40, 30, {}, false);
    clip.frameRate = kRate;
    clip.frameRange = {0.0, kCurveFrames - 1.0};
    return clip;
}

/// A real parameter that is animated in the tests, with values for its keys.
struct AnimatedCase {
    const char* name;
    ParameterId id;
    double low;
    double high;
};
constexpr AnimatedCase kAnimated[] = {{"masterBreakup", ParameterId::MasterBreakup, 5.0, 90.0},
                                      {"playSpeed", ParameterId::PlaySpeed, 40.0, 200.0},
                                      {"breakupSpeed", ParameterId::BreakupSpeed, 10.0, 300.0}};

std::vector<Key> hostKeys(const AnimatedCase& animated, KeyShape shape) {
    return {{2.0, {animated.low}, shape},
            {9.0, {animated.high}, shape},
            {15.0, {animated.low + 7.0}, shape},
            {20.0, {animated.high}, shape}};
}

looks::Animation animationOf(const AnimatedCase& animated, const std::vector<Key>& keys) {
    looks::Animation animation{animated.id, {}};
    for (const Key& key : keys) {
        const auto mode =
            key.shape == KeyShape::Hold ? looks::KeyMode::Hold : looks::KeyMode::Linear;
        animation.keys.push_back({key.time / kRate, key.numbers[0], mode});
    }
    return animation;
}

/// A key with the value of a curve for each frame.
looks::Animation keyAFrame(const AnimatedCase& animated, const std::function<double(double)>& at) {
    looks::Animation animation{animated.id, {}};
    for (int frame = 0; frame < kCurveFrames; ++frame) {
        animation.keys.push_back({frame / kRate, at(frame)});
    }
    return animation;
}

/// Compares all frames of an instance with those of a render with these changes over the preset.
void expectSameFrames(BuiltInstance& built, const looks::Animation& animation) {
    Changes changes = presetNamed("Bad Colour TV");
    changes.emplace_back(animation);
    const ReferenceClip reference(clipWithKeys(), kCurveFrames);
    jobs::RenderJob job = reference.job(changes);
    job.rate = media::makeRational(static_cast<int>(kRate), 1);
    const auto expected = reference.render(job);
    for (int frame = kCurveFrames - 1; frame >= 0; --frame) {
        RenderArgs args;
        args.time = frame;
        ASSERT_EQ(built.instance.render(args).output.bytes, expected.at(frame).bytes) << frame;
    }
}

BuiltInstance& prepared(BuiltInstance& built) {
    built.choosePreset("Bad Colour TV");
    built.instance.set("resultAlpha", 1.0);
    return built;
}

TEST(Keys, LinearAndSteppedCurvesHaveTheBytesOfARenderWithTheSameKeys) {
    for (const AnimatedCase& animated : kAnimated) {
        for (const KeyShape shape : {KeyShape::Linear, KeyShape::Hold}) {
            SCOPED_TRACE(animated.name + std::to_string(static_cast<int>(shape)));
            BuiltInstance built(clipWithKeys());
            const auto keys = hostKeys(animated, shape);
            prepared(built).instance.setKeys(animated.name, keys);
            expectSameFrames(built, animationOf(animated, keys));
        }
    }
}

TEST(Keys, KeysMayLieBetweenFramesAndBeOfBothShapes) {
    const AnimatedCase& animated = kAnimated[0];
    const std::vector<Key> keys = {{-3.0, {10.0}, KeyShape::Linear},
                                   {3.0, {70.0}, KeyShape::Hold},
                                   {11.0, {20.0}, KeyShape::Linear},
                                   {40.0, {95.0}, KeyShape::Linear}};
    BuiltInstance built(clipWithKeys());
    prepared(built).instance.setKeys(animated.name, keys);
    expectSameFrames(built, animationOf(animated, keys));
}

TEST(Keys, SmoothCurvesAreKeysForEachFrame) {
    for (const AnimatedCase& animated : kAnimated) {
        SCOPED_TRACE(animated.name);
        BuiltInstance built(clipWithKeys());
        prepared(built).instance.setKeys(animated.name, hostKeys(animated, KeyShape::Smooth));
        const Parameter& parameter = built.instance.parameters()[animated.name];
        expectSameFrames(built, keyAFrame(animated, [&](double frame) {
                             return parameter.numbersAt(frame)[0];
                         }));
    }
}

TEST(Keys, ExpressionsAreKeysForEachFrame) {
    for (const AnimatedCase& animated : kAnimated) {
        SCOPED_TRACE(animated.name);
        const auto curve = [&](double frame) {
            return animated.low + (animated.high - animated.low) * (0.5 + 0.5 * std::sin(frame));
        };
        BuiltInstance built(clipWithKeys());
        prepared(built).instance.parameters()[animated.name].setExpression(curve);
        expectSameFrames(built, keyAFrame(animated, curve));
    }
}

TEST(Keys, AConstantExpressionIsAValue) {
    const AnimatedCase& animated = kAnimated[0];
    BuiltInstance built(clipWithKeys());
    prepared(built).instance.parameters()[animated.name].setExpression([](double) { return 64.0; });
    expectSameFrames(built, {animated.id, {{0.0, 64.0}}});
}

// Such a host shows each frame as if the value at hand had always been there.
TEST(Keys, AHostThatIgnoresTimesGivesConstants) {
    const AnimatedCase& animated = kAnimated[0];
    HostTraits traits;
    traits.ignoresTimes = true;
    BuiltInstance built(clipWithKeys(), traits);
    prepared(built).instance.setKeys(animated.name, hostKeys(animated, KeyShape::Linear));
    built.host.time = 9.0;
    RenderArgs args;
    args.time = 9.0;
    Changes changes = presetNamed("Bad Colour TV");
    changes.emplace_back(looks::Setting{animated.id, animated.high});
    const ReferenceClip reference(clipWithKeys(), 10);
    jobs::RenderJob job = reference.job(changes);
    job.rate = media::makeRational(static_cast<int>(kRate), 1);
    EXPECT_EQ(built.instance.render(args).output.bytes, reference.render(job).at(9).bytes);
}

TEST(Keys, ValuesThatAreNotFiniteOrOutOfRangeHaveADefinedPicture) {
    const auto frameWith = [](double value) {
        BuiltInstance built(clipWithKeys());
        prepared(built).instance.parameters()["masterBreakup"].setNumbers({value});
        RenderArgs args;
        args.time = 4.0;
        const RenderResult result = built.instance.render(args);
        EXPECT_EQ(result.status, kOfxStatOK) << value;
        return result.output.bytes;
    };
    EXPECT_EQ(frameWith(std::nan("")), frameWith(row(ParameterId::MasterBreakup).defaultValue));
    EXPECT_EQ(frameWith(1e300), frameWith(100.0));
    EXPECT_EQ(frameWith(-5.0), frameWith(0.0));
    EXPECT_NE(frameWith(0.0), frameWith(100.0));
}

}  // namespace
}  // namespace ruvex::ofxhost::test
