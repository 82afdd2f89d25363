// Parameters without effect, compared with pictures that the module renders.

#include "looks/parameter_needs.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "looks/presets.h"
#include "looks/session_look.h"
#include "parameters/artefacts.h"
#include "parameters/presets.h"
#include "runtime/images.h"

namespace ruvex::looks {
namespace {

using Id = ParameterId;
using Kind = Need::Kind;
using Changes = std::vector<ParameterChange>;
using Bytes = std::vector<std::byte>;

constexpr int kWidth = 90;
constexpr int kHeight = 70;
constexpr double kTimes[] = {0.0, 0.6, 1.32};

constexpr runtime::Project kOwnSize{.width = kWidth, .height = kHeight, .frameRate = 25.0};
/// Pictures fill a project frame of another size and shape.
constexpr runtime::Project kOtherSize{
    .width = 317, .height = 199, .pixelAspect = 1.3, .frameRate = 25.0};

/// Noise, another picture at each time.
struct NoiseClip final : runtime::InputProvider {
    NoiseClip(const GUID& ofFormat, const runtime::Project& ofProject)
        : format(ofFormat), project(ofProject) {}

    ComPtr<IDSImage> imageAt(double seconds) override {
        const auto image = runtime::makeProjectImage(project, kWidth, kHeight, format);
        std::mt19937 random(static_cast<unsigned>(std::lround(seconds * 25.0)));
        // Values from black to white at first, all values later.
        const unsigned mask = seconds < 1.0 ? 0x3F : 0xFF;
        for (std::size_t i = 0; i < image->byteCount(); ++i) {
            image->bytes()[i] = static_cast<std::byte>(random() & mask);
        }
        return image;
    }

    GUID format;
    runtime::Project project;
};

/// Renders looks over noise: the pictures of some times, one after the other.
class LookRenderer {
public:
    explicit LookRenderer(const GUID& format, const runtime::Project& project = kOwnSize)
        : clip_(std::make_shared<NoiseClip>(format, project)) {}

    Bytes render(const Changes& look) const {
        runtime::EffectSession session({.module = runtime::Module::loadDefault(),
                                        .project = clip_->project,
                                        .provider = clip_});
        applyChanges(session, look);
        Bytes all;
        for (const double seconds : kTimes) append(session, seconds, all);
        return all;
    }

private:
    void append(runtime::EffectSession& session, double seconds, Bytes& all) const {
        const auto output =
            runtime::makeProjectImage(clip_->project, kWidth, kHeight, clip_->format);
        runtime::RenderRequest request;
        request.seconds = seconds;
        request.output = output;
        session.render(request);
        all.insert(all.end(), output->bytes(), output->bytes() + output->byteCount());
    }

    std::shared_ptr<NoiseClip> clip_;
};

/// Values all over the range of a parameter.
std::vector<double> valuesOf(const ParameterRow& row) {
    if (isCheckBox(row.kind)) return {0, 1};
    std::vector<double> values;
    for (std::size_t i = 0; i < row.choices.size(); ++i) values.push_back(static_cast<double>(i));
    if (!values.empty()) return values;
    const Range range = row.enteredRange().value_or(Range{0, 100});
    for (const double part : {0.0, 0.02, 0.4, 1.0}) {
        const double value = range.low + part * (std::min(range.high, 1000.0) - range.low);
        values.push_back(isReal(row.kind) ? value : std::floor(value));
    }
    return values;
}

/// Whether the pictures of a look are the same for all values of a parameter, and for keys.
bool changesNothing(const LookRenderer& renderer, Changes look, Id id) {
    std::vector<ParameterChange> choices;
    for (const double value : valuesOf(row(id))) choices.emplace_back(Setting{id, value});
    if (isReal(row(id).kind)) {
        const std::vector<double> values = valuesOf(row(id));
        choices.emplace_back(Animation{id, {{0.1, values[0]}, {1.5, values[3]}}});
    }
    look.push_back(choices[0]);
    const Bytes first = renderer.render(look);
    return std::ranges::all_of(choices, [&](const ParameterChange& choice) {
        look.back() = choice;
        return renderer.render(look) == first;
    });
}

/// A look in which every artefact and every other part of the effect acts.
Changes fullLook() {
    Changes look = {Setting{Id::MasterBreakup, 70},
                    Setting{Id::BreakupVariation, 30},
                    Setting{Id::ShashAmountMax, 50},
                    Setting{Id::FishEye, 1},
                    Setting{Id::FishEyeRadius, 40},
                    Setting{Id::FishEyePower, 60},
                    Setting{Id::PlaySpeed, 50},
                    Setting{Id::LineSpacing, 8},
                    Setting{Id::CropLeft, 10},
                    Setting{Id::CropTop, 90},
                    Setting{Id::XEdgeMethod, 0},
                    Setting{Id::EdgeDistortionMax, 30},
                    Setting{Id::GhostingDistanceMax, 20},
                    Setting{Id::ColourDegradeMax, 20}};
    for (const Id id :
         {Id::ColourThreshold, Id::GhostingThreshold, Id::EdgeThreshold, Id::SnowThreshold,
          Id::LineThreshold, Id::VertOffsetThreshold, Id::VertRollThreshold, Id::ShashThreshold}) {
        look.emplace_back(Setting{id, 10});
    }
    return look;
}

/// Meets what fullLook leaves out for one parameter.
Changes lookFor(Id id) {
    Changes look = fullLook();
    for (const Need& need : needsOf(id)) {
        if (need.kind == Kind::Is) look.emplace_back(Setting{need.of, need.value});
    }
    return look;
}

/// Changes that leave a need unmet, one set for each way of doing so.
std::vector<Changes> breaksOf(const Need& need) {
    const Changes noLevel = {Setting{Id::MasterBreakup, 0}, Setting{Id::BreakupVariation, 0}};
    const Changes lowLevel = {Setting{Id::MasterBreakup, 20}, Setting{Id::BreakupVariation, 0},
                              Animation{need.of, {{0, 60}, {1, 21}}}};
    Changes noArtefact;
    for (const Artefact& artefact : artefacts()) {
        const bool lines = artefact.threshold == Id::LineThreshold;
        noArtefact.emplace_back(lines ? Setting{artefact.threshold, 100}
                                      : Setting{artefact.maximum, 0});
    }
    noArtefact.emplace_back(Setting{Id::NumGhosts, 0});
    switch (need.kind) {
        case Kind::NotZero:
            return {{Setting{need.of, 0}}};
        case Kind::Beyond:
            return {{Setting{need.of, 0}}, {Setting{need.of, -0.05}}};
        case Kind::Is:
            return {{Setting{need.of, need.value == 0 ? 1.0 : 0.0}}};
        case Kind::NotAlways:
            return {{Setting{need.of, need.value}}};
        case Kind::LevelExceeds:
            return {noLevel, lowLevel, {Setting{need.of, 100}}};
        case Kind::SomeLevel:
            return {noLevel};
        case Kind::SomeArtefact:
            return {noArtefact, presetChanges(*findPreset("Good TV"))};
        case Kind::Cropped:
            return {{Setting{Id::CropLeft, 0}, Setting{Id::CropTop, 100}}};
        case Kind::ColouredEdges:
            return {{Setting{Id::XEdgeMethod, 1}, Setting{Id::YEdgeMethod, 3}}};
    }
    return {};
}

Changes with(Changes look, const Changes& more) {
    look.insert(look.end(), more.begin(), more.end());
    return look;
}

std::string why(Id id, const Changes& look) {
    return whyWithoutEffect(id, ValueRanges(look));
}

const GUID& formatOf(int number) {
    return number % 2 == 0 ? MFIF_RGBA_RAW_32 : MFIF_RGBA_S2_14;
}

TEST(ParameterNeeds, EachUnmetNeedLeavesPicturesUnchangedAndAMetOneDoesNot) {
    int needs = 0;
    for (const ParameterRow& row : parameterTable()) {
        const LookRenderer renderer(formatOf(needs));
        const Changes look = lookFor(row.id);
        if (needsOf(row.id).size() > 1) {
            EXPECT_EQ(why(row.id, look), "");
            EXPECT_FALSE(changesNothing(renderer, look, row.id)) << row.label;
        }
        for (const Need& need : needsOf(row.id)) {
            ++needs;
            for (const Changes& unmet : breaksOf(need)) {
                const Changes broken = with(look, unmet);
                const std::string said = why(row.id, broken);
                EXPECT_NE(said, "") << row.label << ' ' << static_cast<int>(need.kind);
                EXPECT_TRUE(changesNothing(renderer, broken, row.id)) << said;
            }
        }
    }
    EXPECT_GT(needs, 100);
}

/// A random look; many maxima are 0 and many thresholds 100.
Changes randomLook(std::mt19937& random) {
    const auto chance = [&](unsigned percent) { return random() % 100 < percent; };
    Changes look;
    if (chance(50)) look.emplace_back(Setting{Id::BreakupVariation, 0});
    for (const ParameterRow& row : parameterTable()) {
        if (!row.rendered || !chance(50)) continue;
        if (row.id == Id::DisplayCropped && chance(80)) continue;
        const std::vector<double> values = valuesOf(row);
        const double low = isReal(row.kind) ? renderClamp(row.id, 0.0) : 0.0;
        if (isReal(row.kind) && chance(30)) {
            const auto mode = static_cast<KeyMode>(random() % 3);
            look.emplace_back(Animation{row.id,
                                        {{0.0, values[random() % values.size()], mode},
                                         {1.0, values[random() % values.size()]}}});
        } else {
            look.emplace_back(Setting{row.id, chance(40) ? low : values[random() % values.size()]});
        }
    }
    return look;
}

TEST(ParameterNeeds, NothingThatIsSaidOfARandomLookIsWrong) {
    std::mt19937 random(11);
    int said = 0;
    for (int round = 0; round < 30; ++round) {
        const LookRenderer renderer(formatOf(round), round % 3 == 0 ? kOtherSize : kOwnSize);
        const Changes look = randomLook(random);
        for (const ParameterRow& row : parameterTable()) {
            const std::string sentence = why(row.id, look);
            if (sentence.empty() || random() % 8 != 0) continue;
            ++said;
            EXPECT_TRUE(changesNothing(renderer, look, row.id)) << sentence;
        }
    }
    EXPECT_GT(said, 30);
}

TEST(ParameterNeeds, NameWhatIsMissing) {
    const Changes good = presetChanges(*findPreset("Good TV"));
    const Changes dark = {Setting{Id::MasterBreakup, 0}, Setting{Id::BreakupVariation, 0}};
    const Changes half = {Setting{Id::MasterBreakup, 40}, Setting{Id::BreakupVariation, 0},
                          Setting{Id::SnowThreshold, 50}};
    EXPECT_EQ(why(Id::SnowThreshold, {Setting{Id::SnowMax, 0}}),
              "'Snow Threshold' has no effect: 'Snow Max' is 0.");
    EXPECT_EQ(why(Id::SnowMax, half),
              "'Snow Max' has no effect: 'Master Breakup' is never above 'Snow Threshold'.");
    EXPECT_EQ(why(Id::SnowMax, {Setting{Id::SnowThreshold, 100}}),
              "'Snow Max' has no effect: 'Snow Threshold' is 100.");
    EXPECT_EQ(why(Id::SnowMax, dark),
              "'Snow Max' has no effect: 'Master Breakup' and 'Breakup Variation' are 0.");
    EXPECT_EQ(why(Id::MasterBreakup, good),
              "'Master Breakup' has no effect: no artefact acts at any level (each needs a maximum "
              "other than 0 and a threshold below 100).");
    EXPECT_EQ(why(Id::TintColourG, {}), "'Tint Colour G' has no effect: 'TV Type' is not Tint.");
    EXPECT_EQ(why(Id::FishEyeRadius, {}), "'Fish Eye Radius' has no effect: 'Fish Eye' is off.");
    EXPECT_EQ(why(Id::PlayMode, {}), "'Play Mode' has no effect: 'Play Speed' is 100.");
    EXPECT_EQ(why(Id::SnowMax, {Setting{Id::DisplayCropped, 1}}),
              "'Snow Max' has no effect: 'Display Cropped' is on.");
    EXPECT_EQ(why(Id::SnowMax, {}), "");
    EXPECT_EQ(why(Id::Seed, {}), "");
}

TEST(ParameterNeeds, CountTheExtremeValuesOfKeys) {
    Changes look = {Setting{Id::BreakupVariation, 0}, Setting{Id::SnowThreshold, 50},
                    Animation{Id::MasterBreakup, {{0, 0}, {1, 49}}}};
    EXPECT_NE(why(Id::SnowMax, look), "");
    look.push_back(Animation{Id::MasterBreakup, {{0, 0}, {1, 51}, {2, 0}}});
    EXPECT_EQ(why(Id::SnowMax, look), "");
    look.push_back(Animation{Id::SnowThreshold, {{0, 100}, {1, 60}}});
    EXPECT_NE(why(Id::SnowMax, look), "");
    look.push_back(Animation{Id::BreakupVariation, {{0, 0}, {1, 1}}});
    EXPECT_EQ(why(Id::SnowMax, look), "");
}

}  // namespace
}  // namespace ruvex::looks
