#include "tests/pictures/picture_case.h"

#include <cmath>

#include "effect/percent.h"
#include "parameters/presets.h"
#include "tests/effect/support/module_workers.h"
#include "tests/pictures/test_card.h"

namespace ruvex::test {
namespace {

using Id = ParameterId;

// The preset "Bad Colour TV" has all that it has at this frame.
constexpr int kPresetFrame = 60;

constexpr int kProjectWidth = 320;
constexpr int kProjectHeight = 240;

template <class P>
constexpr int kShrink = sizeof(P) == 4 ? 4 : 5;

// Serves the test card of any frame.
template <class P>
class CardClip final : public runtime::InputProvider {
public:
    explicit CardClip(runtime::Project project) : project_(project) {}
    ComPtr<IDSImage> imageAt(double seconds) override {
        const int frame = static_cast<int>(std::lround(seconds * project_.frameRate));
        return imageOf(project_, testCard<P>(project_.width / kShrink<P>,
                                             project_.height / kShrink<P>, frame));
    }

private:
    runtime::Project project_;
};

// The percentage that the effect reads as just this fraction.
double percentOf(float fraction) {
    const double percent = fraction / kPercent;
    return static_cast<float>(percent * kPercent) == fraction ? percent : NAN;
}

std::string lowerCase(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (std::isalnum(static_cast<unsigned char>(c))) {
            result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        } else if (!result.empty() && result.back() != '-') {
            result += '-';
        }
    }
    return result;
}

using Cases = std::vector<PictureCase>;

void addPresets(Cases& cases) {
    for (int preset = 0; preset < kPresetCount; ++preset) {
        PictureCase look{.name = "preset-" + lowerCase(presetNames()[preset]),
                         .settings = {},
                         .frame = kPresetFrame};
        for (const PresetRow& row : presetTable()) {
            if (const auto value = row.value(preset)) look.settings.push_back({row.id, *value});
        }
        const std::string_view name = presetNames()[preset];
        look.byWorkers = name == "Bad Colour TV" || name == "Bad B&W TV" || name == "Cable Out";
        cases.push_back(look);
    }
}

void addTubes(Cases& cases) {
    const std::vector<Setting> tones = {{Id::TvContrast, 20},        {Id::TvBrightness, 10},
                                        {Id::TvColour, 150},         {Id::TvBrightnessRed, 15},
                                        {Id::TvBrightnessBlue, -15}, {Id::TintColourR, 20},
                                        {Id::TintColourG, 60},       {Id::TintColourB, 40}};
    constexpr const char* kTypes[] = {"colour", "b-w", "tint"};
    for (int type = 0; type < 3; ++type) {
        PictureCase look{.name = std::string("tv-type-") + kTypes[type], .settings = tones};
        look.settings.push_back({Id::TvType, static_cast<double>(type)});
        cases.push_back(look);
    }
    cases.push_back(
        {"flat-and-dark", {{Id::TvContrast, -60}, {Id::TvBrightness, -30}, {Id::TvColour, 30}}});
    cases.push_back({"guns",
                     {{Id::GunAlignRedX, 24},
                      {Id::GunAlignRedY, -12},
                      {Id::GunAlignGreenY, 20},
                      {Id::GunAlignBlueX, -30}}});
    cases.push_back({"em-interference", {{Id::EmInterference, 80}}});
}

// A broken signal of which `more` lets something be seen.
std::vector<Setting> broken(const std::vector<Setting>& more) {
    std::vector<Setting> settings = noFault();
    settings.push_back({Id::MasterBreakup, 75});
    settings.insert(settings.end(), more.begin(), more.end());
    return settings;
}

void addColourLoss(Cases& cases) {
    const auto add = [&](const char* name, float fraction) {
        cases.push_back({name, broken({{Id::MasterBreakup, 100},
                                       {Id::ColourThreshold, 0},
                                       {Id::ColourDegradeMax, percentOf(fraction)}})});
    };
    // The floats nearest to a fifth and to two fifths lie above them.
    add("degrade-below-a-fifth", std::nextafter(0.2f, 0.0f));
    add("degrade-above-a-fifth", 0.2f);
    add("degrade-below-two-fifths", std::nextafter(0.4f, 0.0f));
    add("degrade-above-two-fifths", 0.4f);
}

void addSignalFaults(Cases& cases) {
    cases.push_back({"ghosts", broken({{Id::GhostingThreshold, 10},
                                       {Id::NumGhosts, 3},
                                       {Id::GhostingDistanceMax, 200},
                                       {Id::GhostingStrength, 60}})});
    constexpr const char* kBorders[] = {"none", "full", "banded"};
    for (int border = 0; border < 3; ++border) {
        cases.push_back({std::string("border-alpha-") + kBorders[border],
                         broken({{Id::BorderAlpha, static_cast<double>(border)},
                                 {Id::EdgeThreshold, 0},
                                 {Id::EdgeDistortionMax, 160},
                                 {Id::EdgeJaggedness, 3},
                                 {Id::VertOffsetThreshold, 0},
                                 {Id::VertOffsetMax, 100}}),
                         true});
    }
    cases.push_back(
        {"roll", broken({{Id::VertRollThreshold, 0}, {Id::VertRollSpeedMax, 400}}), true});
}

void addGrain(Cases& cases) {
    const auto snow = [&](const char* name, double max, double softness) {
        cases.push_back({name, broken({{Id::SnowThreshold, 0},
                                       {Id::SnowMax, max},
                                       {Id::SnowSoftness, softness},
                                       {Id::SnowSparseness, 30}})});
    };
    snow("snow", 80, 0);
    snow("snow-soft", 120, 12);
    snow("snow-negative", -80, 0);
    const auto lines = [&](const char* name, int type, double angle) {
        cases.push_back({name,
                         broken({{Id::TvType, static_cast<double>(type)},
                                 {Id::LineThreshold, 0},
                                 {Id::LineAngle, angle},
                                 {Id::LineSpacing, 40}}),
                         true});
    };
    lines("lines-shallow", 0, 200);
    lines("lines-steep", 1, 70);
}

void addShash(Cases& cases) {
    for (int type = 0; type <= 5; ++type) {
        const std::string name = type < 5 ? "type-" + std::to_string(type + 1) : "random";
        cases.push_back({"shash-" + name,
                         broken({{Id::MasterBreakup, 100},
                                 {Id::ShashThreshold, 0},
                                 {Id::ShashAmountMax, type < 5 ? 80.0 : 60.0},
                                 {Id::ShashPeriod, 0.2},
                                 {Id::ShashType, static_cast<double>(type)}}),
                         type != 3 && type != 4});
    }
}

void addPlayers(Cases& cases) {
    cases.push_back({"winding-fast", {{Id::PlaySpeed, 300}}, true});
    cases.push_back({"winding-back", {{Id::PlaySpeed, -100}}, true});
    cases.push_back({.name = "slow-torn", .settings = {{Id::PlaySpeed, 20}}, .frame = 3});
    cases.push_back({"slow", {{Id::PlaySpeed, 20}}});
    cases.push_back({"dvd", {{Id::PlaySpeed, 300}, {Id::PlayMode, 1}}});
    for (const double dot : {10.0, 50.0, 90.0}) {
        // A share that begins above the shrunken picture takes other rows of it; what is left at
        // 50 and 90 % is white all the same.
        cases.push_back({"white-dot-" + std::to_string(static_cast<int>(dot)),
                         {{Id::WhiteDot, dot}},
                         dot < 50.0});
    }
}

void addWholes(Cases& cases) {
    const std::vector<Setting> all = broken({{Id::ColourThreshold, 70},
                                             {Id::NumGhosts, 2},
                                             {Id::GhostingThreshold, 20},
                                             {Id::EdgeThreshold, 30},
                                             {Id::SnowThreshold, 0},
                                             {Id::LineThreshold, 20},
                                             {Id::VertOffsetThreshold, 40},
                                             {Id::VertRollThreshold, 50},
                                             {Id::ShashThreshold, 60},
                                             {Id::ShashType, 4},
                                             {Id::EmInterference, 50},
                                             {Id::GunAlignRedX, 8},
                                             {Id::PlaySpeed, 60},
                                             {Id::RepeatFrames, 2},
                                             {Id::BorderAlpha, 2},
                                             {Id::FishEye, 1},
                                             {Id::FishEyeRadius, 100},
                                             {Id::Blur, 3},
                                             {Id::Resolution, 60},
                                             {Id::ScanlineWidth, 12},
                                             {Id::WhiteDot, 4}});
    cases.push_back({"all-at-once", all, true});
    cases.push_back({.name = "all-at-once-wide",
                     .settings = all,
                     .byWorkers = true,
                     .pixelAspect = 16.0 / 15.0});
}

Cases makeCases() {
    Cases cases;
    addPresets(cases);
    addTubes(cases);
    addColourLoss(cases);
    addSignalFaults(cases);
    addGrain(cases);
    addShash(cases);
    addPlayers(cases);
    addWholes(cases);
    return cases;
}

}  // namespace

const std::vector<PictureCase>& pictureCases() {
    static const Cases cases = makeCases();
    return cases;
}

template <class P>
Picture<P> renderCase(const PictureCase& look, int workers) {
    const runtime::Project project{
        .width = kProjectWidth, .height = kProjectHeight, .pixelAspect = look.pixelAspect};
    Renderer renderer(project, std::make_shared<CardClip<P>>(project));
    for (const Setting& setting : look.settings) renderer.set(setting.id, setting.value);
    const ModuleWorkers fixed(renderer, workers);
    return renderer.render(
        testCard<P>(kProjectWidth / kShrink<P>, kProjectHeight / kShrink<P>, look.frame),
        runtime::frameTime(look.frame, project.frameRate));
}

template <class P>
std::string storedName(const PictureCase& look, int workers) {
    std::string name = look.name + (sizeof(P) == 4 ? ".8" : ".s214");
    if (look.byWorkers) name += ".workers" + std::to_string(workers);
    return name;
}

template Picture<Rgba8> renderCase(const PictureCase&, int);
template Picture<RgbaS214> renderCase(const PictureCase&, int);
template std::string storedName<Rgba8>(const PictureCase&, int);
template std::string storedName<RgbaS214>(const PictureCase&, int);

}  // namespace ruvex::test
