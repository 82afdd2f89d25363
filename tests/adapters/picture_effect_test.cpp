#include "adapters/common/picture_effect.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <optional>
#include <string>

#include "adapters/common/hosted_effect.h"
#include "adapters/common/row_convert.h"
#include "looks/presets.h"
#include "looks/ruvex_control.h"
#include "looks/session_look.h"
#include "parameters/presets.h"
#include "runtime/error.h"
#include "runtime/images.h"
#include "tests/adapters/host_memory.h"

namespace ruvex::adapters {
namespace {

using test::fillWithNoise;
using test::HostMemory;
using test::Layout;

using Changes = std::vector<looks::ParameterChange>;
using Pixels = std::vector<std::byte>;

/// The picture; its corner is not at 0, and its first line is of the upper field.
constexpr PixelRect kFrame{-11, -7, 61, 43};
constexpr std::byte kFill{0x33};
constexpr auto kStraight = HostAlpha::Straight;

constexpr PixelForm rgba(SampleType samples, HostAlpha alpha = kStraight) {
    return {samples, Components::Rgba, alpha};
}
constexpr PixelForm k8 = rgba(SampleType::Bits8);
constexpr PixelForm k16 = rgba(SampleType::Bits16);
constexpr PixelForm kFloat = rgba(SampleType::Float);

/// A preset with snow, tears and ghosts, in which all of the picture changes.
const Changes& broken() {
    static const Changes all = looks::presetChanges(1);
    return all;
}

/// Nothing disturbs the picture; it is moved up by so many rows.
Changes movedUp(double rows) {
    return {looks::Setting{ParameterId::VertOffsetMax, rows},
            looks::Setting{ParameterId::VertOffsetThreshold, 0.0},
            looks::Setting{ParameterId::MasterBreakup, 100.0},
            looks::Setting{ParameterId::SnowMax, 0.0}};
}

FrameTask task(Changes changes = broken(), PixelRect frame = kFrame) {
    return {.project = {frame.width(), frame.height(), 1.0, 25.0},
            .seconds = 0.64,
            .changes = std::move(changes),
            .frame = frame,
            .window = frame,
            .alpha = ResultAlpha::Effect};
}

HostMemory noise(PixelForm form, PixelRect bounds = kFrame, std::uint32_t seed = 3) {
    HostMemory memory(bounds, form);
    fillWithNoise(memory, seed);
    return memory;
}

/// The result for a source, in a target with the frame's bounds.
HostMemory rendered(const FrameTask& task, const HostMemory* source, PixelForm form) {
    HostMemory target(task.frame, form, {}, kFill);
    const auto picture = source ? std::optional(source->source()) : std::nullopt;
    PictureEffect effect;
    effect.render(task, picture ? &*picture : nullptr, target.target());
    EXPECT_TRUE(target.guarded());
    return target;
}

Pixels renderedPixels(const FrameTask& task, const HostMemory& source, PixelForm form) {
    return rendered(task, &source, form).pixels();
}

/// Serves a copy of one image for every time.
struct OneImage final : runtime::InputProvider {
    ComPtr<CDSMemoryImage> image;
    ComPtr<IDSImage> imageAt(double) override { return runtime::copyImage(*image); }
};

/// An image by a session of its own, as a render of a clip with 8 workers makes it.
ComPtr<CDSMemoryImage> bySession(const FrameTask& task, const ComPtr<CDSMemoryImage>& input) {
    const auto clip = std::make_shared<OneImage>();
    clip->image = runtime::copyImage(*input);
    runtime::EffectSession session(
        {.module = runtime::Module::loadDefault(), .project = task.project, .provider = clip});
    looks::ruvexControl(session).setWorkerCount(8);
    looks::applyChanges(session, task.changes);
    runtime::RenderRequest request;
    request.seconds = task.seconds;
    request.input = input;
    auto output =
        runtime::makeProjectImage(task.project, input->width(), input->height(), input->format());
    request.output = output;
    session.render(request);
    return output;
}

/// The rows of a source with the task's frame, converted, as an image.
ComPtr<CDSMemoryImage> imageOf(const FrameTask& task, const HostMemory& source) {
    const int width = task.frame.width();
    auto image =
        runtime::makeProjectImage(task.project, width, task.frame.height(), MFIF_RGBA_S2_14);
    auto* row = reinterpret_cast<std::int16_t*>(image->bytes());
    for (int y = task.frame.y1; y < task.frame.y2; ++y, row += std::ptrdiff_t{width} * 4) {
        readRow(source.source().row(y), source.source().form, width, row);
    }
    return image;
}

/// An image converted to a host's form.
Pixels pixelsOf(CDSMemoryImage& image, PixelForm form) {
    HostMemory memory({0, 0, int(image.width()), int(image.height())}, form);
    const auto* row = reinterpret_cast<const std::int16_t*>(image.bytes());
    for (int y = 0; y < image.height(); ++y, row += std::ptrdiff_t{image.width()} * 4) {
        writeRow(row, form, image.width(), memory.row(y));
    }
    return memory.pixels();
}

TEST(PictureEffect, EightBitsAreThoseOfTheOtherPlugIns) {
    const HostMemory source = noise(k8);
    const Pixels pixels = source.pixels();
    for (int preset = 0; preset < kPresetCount; ++preset) {
        Pixels wanted(pixels.size());
        HostedEffect hosted;
        ASSERT_TRUE(hosted.render(
            {.frame = 16, .look = std::string(presetNames()[preset]), .alpha = PlugInAlpha::Effect},
            {reinterpret_cast<const std::uint8_t*>(pixels.data()), kFrame.width() * 4,
             kFrame.width(), kFrame.height()},
            {reinterpret_cast<std::uint8_t*>(wanted.data()), kFrame.width() * 4, kFrame.width(),
             kFrame.height()}));
        EXPECT_EQ(renderedPixels(task(looks::presetChanges(preset)), source, k8), wanted) << preset;
    }
}

TEST(PictureEffect, DeepPicturesAreThoseOfASession) {
    const PixelForm forms[] = {k16,
                               kFloat,
                               rgba(SampleType::Bits16, HostAlpha::Premultiplied),
                               rgba(SampleType::Float, HostAlpha::Premultiplied),
                               {SampleType::Bits16, Components::Rgb},
                               {SampleType::Float, Components::Alpha}};
    for (const PixelForm& form : forms) {
        const HostMemory source = noise(form);
        const auto wanted = bySession(task(), imageOf(task(), source));
        EXPECT_EQ(renderedPixels(task(), source, form), pixelsOf(*wanted, form));
    }
}

TEST(PictureEffect, SourceAndTargetMayDifferInForm) {
    const HostMemory bytes = noise(k8);
    const auto deep = bySession(task(), imageOf(task(), bytes));
    EXPECT_EQ(renderedPixels(task(), bytes, kFloat), pixelsOf(*deep, kFloat));
    const HostMemory floats = noise(kFloat);
    const auto ofFloats = bySession(task(), imageOf(task(), floats));
    EXPECT_EQ(renderedPixels(task(), floats, k8), pixelsOf(*ofFloats, k8));
}

TEST(PictureEffect, LengthsAreThoseOfTheProject) {
    FrameTask half = task();
    half.project = {kFrame.width() * 2, kFrame.height() * 2, 1.25, 30.0};
    const HostMemory source = noise(k16);
    const auto wanted = bySession(half, imageOf(half, source));
    EXPECT_EQ(renderedPixels(half, source, k16), pixelsOf(*wanted, k16));
    EXPECT_NE(renderedPixels(half, source, k16), renderedPixels(task(), source, k16));
}

TEST(PictureEffect, AFrameDependsOnItsArgumentsAlone) {
    const HostMemory source = noise(k8);
    const HostMemory deepSource = noise(kFloat);
    FrameTask other = task(looks::presetChanges(3));
    other.project.frameRate = 30;
    other.lines = RenderedLines::UpperField;
    FrameTask broken = task();
    broken.frame.x2 = broken.frame.x1;
    const SourcePicture picture = source.source();
    const SourcePicture deep = deepSource.source();
    PictureEffect effect;
    HostMemory target(kFrame, k8);
    HostMemory deepTarget(kFrame, kFloat);
    const Pixels wanted = renderedPixels(task(), source, k8);
    for (int round = 0; round < 2; ++round) {
        effect.render(task(), &picture, target.target());
        EXPECT_EQ(target.pixels(), wanted);
        effect.render(other, &deep, deepTarget.target());
        EXPECT_THROW(effect.render(broken, &picture, target.target()), runtime::Error);
        effect.render(task(), nullptr, target.target());
    }
}

TEST(PictureEffect, SourceAndTargetMayBeOneMemory) {
    HostMemory memory = noise(k16);
    const Pixels wanted = renderedPixels(task(), memory, k16);
    const SourcePicture source = memory.source();
    PictureEffect effect;
    effect.render(task(), &source, memory.target());
    EXPECT_EQ(memory.pixels(), wanted);
}

/// Renders windows of the picture one by one into one target.
Pixels inParts(FrameTask whole, const HostMemory& source, Layout layout) {
    HostMemory target(kFrame, source.source().form, layout, kFill);
    const SourcePicture picture = source.source();
    PictureEffect effect;
    for (int y = kFrame.y1 - 3; y < kFrame.y2; y += 17) {
        for (int x = kFrame.x1 - 5; x < kFrame.x2; x += 31) {
            whole.window = {x, y, x + 31, y + 17};
            effect.render(whole, &picture, target.target());
        }
    }
    EXPECT_TRUE(target.guarded());
    return target.pixels();
}

TEST(PictureEffect, PartsAreThoseOfTheWhole) {
    for (const RenderedLines lines :
         {RenderedLines::All, RenderedLines::LowerField, RenderedLines::UpperField}) {
        FrameTask whole = task();
        whole.lines = lines;
        whole.alpha = ResultAlpha::Automatic;
        const HostMemory source = noise(kFloat);
        const Pixels wanted = renderedPixels(whole, source, kFloat);
        EXPECT_EQ(inParts(whole, source, {}), wanted);
        EXPECT_EQ(inParts(whole, source, {true, 9}), wanted);
    }
}

TEST(PictureEffect, TightSourcesAreTransparentAround) {
    const PixelRect tight{-3, 0, 30, 21};
    const HostMemory source = noise(k8, tight);
    HostMemory padded(kFrame, k8);
    for (int y = tight.y1; y < tight.y2; ++y) {
        for (int x = tight.x1; x < tight.x2; ++x) padded.setPixel(x, y, source.pixel(x, y));
    }
    const FrameTask whole = task();
    EXPECT_EQ(renderedPixels(whole, source, k8), renderedPixels(whole, padded, k8));
    const HostMemory black(kFrame, k8);
    EXPECT_EQ(rendered(whole, nullptr, k8).pixels(), renderedPixels(whole, black, k8));
    const HostMemory away = noise(k8, {1000, 1000, 1010, 1010});
    EXPECT_EQ(renderedPixels(whole, away, k8), renderedPixels(whole, black, k8));
}

TEST(PictureEffect, LargerSourcesAreCut) {
    const HostMemory large = noise(k8, {-40, -30, 90, 70});
    HostMemory cut(kFrame, k8);
    for (int y = kFrame.y1; y < kFrame.y2; ++y) {
        for (int x = kFrame.x1; x < kFrame.x2; ++x) cut.setPixel(x, y, large.pixel(x, y));
    }
    EXPECT_EQ(renderedPixels(task(), large, k8), renderedPixels(task(), cut, k8));
}

/// The lines of one field of `memory`, as a picture of its own from y 0 on.
HostMemory fieldOf(const HostMemory& memory, int parity) {
    const SourcePicture whole = memory.source();
    const int first = whole.bounds.y1 + ((whole.bounds.y1 & 1) == parity ? 0 : 1);
    const int count = (whole.bounds.y2 - first + 1) / 2;
    HostMemory field({whole.bounds.x1, 0, whole.bounds.x2, count}, whole.form);
    for (int row = 0; row < count; ++row) {
        std::memcpy(field.row(row), whole.row(first + 2 * row), field.rowSize());
    }
    return field;
}

TEST(PictureEffect, FieldsArePicturesOfTheirOwn) {
    const HostMemory source = noise(k16);
    FrameTask fieldTask = task();
    HostMemory target(kFrame, k16, {true, 0}, kFill);
    const SourcePicture picture = source.source();
    PictureEffect effect;
    for (const int parity : {0, 1}) {
        fieldTask.lines = parity == 0 ? RenderedLines::LowerField : RenderedLines::UpperField;
        fieldTask.seconds = 0.64 + parity * 0.02;
        effect.render(fieldTask, &picture, target.target());
        // The same by hand: half the lines fill the project frame.
        const HostMemory field = fieldOf(source, parity);
        FrameTask byHand = fieldTask;
        byHand.frame = byHand.window = field.source().bounds;
        const auto wanted = bySession(byHand, imageOf(byHand, field));
        EXPECT_EQ(fieldOf(target, parity).pixels(), pixelsOf(*wanted, k16));
        if (parity == 0) {
            const HostMemory other = fieldOf(target, 1);
            EXPECT_EQ(other.pixels(), Pixels(other.pixels().size(), kFill));
        }
    }
    EXPECT_TRUE(target.guarded());
}

TEST(PictureEffect, AFieldWithoutLinesWritesNothing) {
    const HostMemory source = noise(k8);
    FrameTask line = task(broken(), {0, 2, 9, 3});
    line.lines = RenderedLines::UpperField;
    HostMemory target({0, 2, 9, 4}, k8, {}, kFill);
    line.window = target.source().bounds;
    const SourcePicture picture = source.source();
    PictureEffect effect;
    effect.render(line, &picture, target.target());
    Pixels wanted(36, kFill);
    // Line 3 belongs to the window and lies outside the frame.
    wanted.resize(72);
    EXPECT_EQ(target.pixels(), wanted);
}

/// How many pixels have this alpha.
int countAlpha(const Pixels& pixels, std::uint8_t alpha) {
    int count = 0;
    for (std::size_t i = kAlphaChannel; i < pixels.size(); i += 4) {
        count += pixels[i] == std::byte{alpha} ? 1 : 0;
    }
    return count;
}

constexpr int kPixelCount = kFrame.width() * kFrame.height();

/// Noise, all of whose pixels are opaque but one, whose alpha is given.
HostMemory opaqueNoise(std::uint8_t alphaOfOne = 255) {
    HostMemory memory = noise(k8);
    for (int y = kFrame.y1; y < kFrame.y2; ++y) {
        for (int x = kFrame.x1; x < kFrame.x2; ++x) {
            *(memory.target().pixel(x, y) + kAlphaChannel) = std::byte{255};
        }
    }
    *(memory.target().pixel(20, 20) + kAlphaChannel) = std::byte{alphaOfOne};
    return memory;
}

TEST(PictureEffect, OpaqueSourcesGiveOpaqueResults) {
    FrameTask moved = task(movedUp(20));
    const HostMemory opaque = opaqueNoise();
    const HostMemory almost = opaqueNoise(254);
    const Pixels effects = renderedPixels(moved, opaque, k8);
    const int transparent = countAlpha(effects, 0);
    EXPECT_GT(transparent, 100);
    moved.alpha = ResultAlpha::Automatic;
    EXPECT_EQ(countAlpha(renderedPixels(moved, opaque, k8), 255), kPixelCount);
    EXPECT_EQ(countAlpha(renderedPixels(moved, almost, k8), 0), transparent);
    moved.alpha = ResultAlpha::Opaque;
    EXPECT_EQ(countAlpha(renderedPixels(moved, almost, k8), 255), kPixelCount);
}

TEST(PictureEffect, OpaqueFormsGiveOpaqueResults) {
    FrameTask moved = task(movedUp(20));
    const PixelForm opaqueForm = rgba(SampleType::Bits8, HostAlpha::Opaque);
    const HostMemory source = noise(opaqueForm);
    EXPECT_EQ(countAlpha(renderedPixels(moved, source, opaqueForm), 255), kPixelCount);
    EXPECT_LT(countAlpha(renderedPixels(moved, source, k8), 255), kPixelCount);
    const HostMemory rgb = noise({SampleType::Bits8, Components::Rgb});
    EXPECT_LT(countAlpha(renderedPixels(moved, rgb, k8), 255), kPixelCount);
    moved.alpha = ResultAlpha::Automatic;
    EXPECT_EQ(countAlpha(renderedPixels(moved, source, k8), 255), kPixelCount);
    EXPECT_EQ(countAlpha(renderedPixels(moved, rgb, k8), 255), kPixelCount);
}

TEST(PictureEffect, AlphaAloneIsThatOfAPictureWithColours) {
    constexpr PixelForm kMatte{SampleType::Bits8, Components::Alpha};
    const HostMemory matte = noise(kMatte);
    HostMemory coloured = noise(k8);
    for (int y = kFrame.y1; y < kFrame.y2; ++y) {
        for (int x = kFrame.x1; x < kFrame.x2; ++x) {
            *(coloured.target().pixel(x, y) + kAlphaChannel) = matte.pixel(x, y)[0];
        }
    }
    const Pixels alpha = renderedPixels(task(movedUp(20)), matte, kMatte);
    const Pixels pixels = renderedPixels(task(movedUp(20)), coloured, k8);
    ASSERT_EQ(alpha.size() * 4, pixels.size());
    for (std::size_t i = 0; i < alpha.size(); ++i) ASSERT_EQ(alpha[i], pixels[i * 4 + 3]);
    EXPECT_NE(alpha, matte.pixels());
}

/// Serves pictures by their frame numbers at 25 frames per second.
struct FakeClip final : OtherFrames {
    std::map<int, HostMemory> frames;
    int asked = 0;
    bool fails = false;

    bool pictureAt(double seconds, const std::function<void(const SourcePicture&)>& use) override {
        ++asked;
        if (fails) throw runtime::Error("no such frame");
        const auto found = frames.find(static_cast<int>(std::lround(seconds * 25)));
        if (found == frames.end()) return false;
        use(found->second.source());
        return true;
    }
};

/// Every frame shows the last one with a number that is a multiple of 4.
const Changes kRepeats = {looks::Setting{ParameterId::MasterBreakup, 0.0},
                          looks::Setting{ParameterId::RepeatFrames, 4.0}};

/// The task of frame 7.
FrameTask repeating() {
    FrameTask frame = task(kRepeats);
    frame.seconds = 7 / 25.0;
    return frame;
}

/// The number of the frame that is shown instead of frame 7.
int shownFrame() {
    PictureEffect effect;
    return effect.valuesOf(repeating()).shown;
}

TEST(PictureEffect, OtherFramesComeFromTheHost) {
    ASSERT_NE(shownFrame(), 7);
    const HostMemory source = noise(k8);
    const HostMemory other = noise(k8, kFrame, 99);
    FakeClip clip;
    FrameTask frame = repeating();
    frame.others = &clip;
    // There is no such frame yet: the picture at hand serves.
    const FrameTask still = task({looks::Setting{ParameterId::MasterBreakup, 0.0}});
    EXPECT_EQ(renderedPixels(frame, source, k8), renderedPixels(still, source, k8));
    EXPECT_GT(clip.asked, 0);
    clip.frames.emplace(shownFrame(), other);
    EXPECT_EQ(renderedPixels(frame, source, k8), renderedPixels(still, other, k8));
    EXPECT_EQ(rendered(frame, nullptr, k8).pixels(), renderedPixels(still, other, k8));
    frame.others = nullptr;
    EXPECT_EQ(renderedPixels(frame, source, k8), renderedPixels(still, source, k8));
}

TEST(PictureEffect, TheFrameAtHandIsNotAskedForAgain) {
    const HostMemory source = noise(k8);
    FakeClip clip;
    FrameTask second = task();
    second.lines = RenderedLines::UpperField;
    const Pixels early = renderedPixels(second, source, k8);
    second.seconds += 0.02;
    second.others = &clip;
    const Pixels late = renderedPixels(second, source, k8);
    EXPECT_EQ(clip.asked, 0);
    EXPECT_NE(late, early);
    second.others = nullptr;
    EXPECT_EQ(renderedPixels(second, source, k8), late);
}

TEST(PictureEffect, OtherFramesComeAsTheSameFieldAndInAnyForm) {
    const HostMemory source = noise(k8);
    HostMemory other({-20, -20, 70, 50}, kFloat, {true, 4});
    fillWithNoise(other, 5);
    FakeClip clip;
    clip.frames.emplace(shownFrame(), other);
    FrameTask still = task({looks::Setting{ParameterId::MasterBreakup, 0.0}});
    FrameTask frame = repeating();
    frame.others = &clip;
    frame.lines = still.lines = RenderedLines::LowerField;
    EXPECT_EQ(renderedPixels(frame, source, k8), renderedPixels(still, other, k8));
    EXPECT_EQ(renderedPixels(frame, source, kFloat), renderedPixels(still, other, kFloat));
}

TEST(PictureEffect, AFailureOfTheClipEndsTheRender) {
    const HostMemory source = noise(k8);
    FakeClip clip;
    clip.fails = true;
    FrameTask frame = repeating();
    frame.others = &clip;
    HostMemory target(kFrame, k8, {}, kFill);
    const SourcePicture picture = source.source();
    PictureEffect effect;
    EXPECT_THROW(effect.render(frame, &picture, target.target()), runtime::Error);
    EXPECT_EQ(target.pixels(), Pixels(target.pixels().size(), kFill));
    // The next frame knows nothing of it.
    effect.render(task(), &picture, target.target());
    EXPECT_EQ(target.pixels(), renderedPixels(task(), source, k8));
}

/// The sentence that a task ends with; empty if there is none. The target is then unchanged.
std::string complaintOf(const FrameTask& wrong) {
    const HostMemory source = noise(k8);
    HostMemory target(kFrame, k8, {}, kFill);
    const SourcePicture picture = source.source();
    PictureEffect effect;
    try {
        effect.render(wrong, &picture, target.target());
    } catch (const runtime::Error& error) {
        EXPECT_EQ(target.pixels(), Pixels(target.pixels().size(), kFill));
        return error.what();
    }
    return "";
}

TEST(PictureEffect, ImpossibleTasksAreRefused) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    EXPECT_EQ(complaintOf(task()), "");
    const auto ofFrame = [](PixelRect frame) {
        FrameTask wrong = task();
        wrong.frame = frame;
        return complaintOf(wrong);
    };
    for (const PixelRect& frame : {PixelRect{}, PixelRect{0, 0, 5, 0}, PixelRect{5, 0, 0, 5},
                                   PixelRect{kMost, kMost, kLeast, kLeast}}) {
        EXPECT_NE(ofFrame(frame).find("there is no picture"), std::string::npos);
    }
    for (const PixelRect& frame :
         {PixelRect{kLeast, kLeast, kMost, kMost}, PixelRect{0, 0, 65537, 1},
          PixelRect{0, kLeast, 1, 0}, PixelRect{-1, 0, kMost, 4}}) {
        EXPECT_NE(ofFrame(frame).find("is too large"), std::string::npos);
    }
    EXPECT_NE(ofFrame({0, 0, 65536, 65536}).find("2 GB"), std::string::npos);
    FrameTask wrong = task();
    wrong.seconds = std::numeric_limits<double>::quiet_NaN();
    EXPECT_NE(complaintOf(wrong).find("not finite"), std::string::npos);
    wrong = task();
    wrong.project.frameRate = 0;
    EXPECT_NE(complaintOf(wrong).find("frame rate"), std::string::npos);
}

TEST(PictureEffect, FramesAtTheEndsOfIntegersAreRendered) {
    constexpr int kLeast = std::numeric_limits<int>::min();
    constexpr int kMost = std::numeric_limits<int>::max();
    for (const PixelRect& corner : {PixelRect{kLeast, kLeast, kLeast + 72, kLeast + 50},
                                    PixelRect{kMost - 72, kMost - 50, kMost, kMost}}) {
        FrameTask extreme = task(broken(), corner);
        extreme.window = {kLeast, kLeast, kMost, kMost};
        const HostMemory source = noise(k8, corner);
        const HostMemory same = noise(k8);
        EXPECT_EQ(renderedPixels(extreme, source, k8), renderedPixels(task(), same, k8));
    }
}

TEST(PictureEffect, ValuesAreThoseOfTheTask) {
    FrameTask wanted = task();
    wanted.seconds = 2.0;
    wanted.project.frameRate = 50.0;
    runtime::EffectSession session(
        {.module = runtime::Module::loadDefault(), .project = wanted.project});
    looks::applyChanges(session, wanted.changes);
    const auto scope = session.enter();
    FrameValues ofSession{};
    ASSERT_EQ(looks::ruvexControl(session).frameValues(2.0, 50.0, &ofSession), 0);
    PictureEffect effect;
    effect.valuesOf(task({}));
    wanted.frame = {};
    const FrameValues values = effect.valuesOf(wanted);
    EXPECT_EQ(values.frame, 100);
    EXPECT_EQ(values.frame, ofSession.frame);
    EXPECT_GT(values.level, 0.0F);
    EXPECT_EQ(values.level, ofSession.level);
    EXPECT_EQ(values.snow, ofSession.snow);
    EXPECT_EQ(values.lineTravel, ofSession.lineTravel);
}

}  // namespace
}  // namespace ruvex::adapters
