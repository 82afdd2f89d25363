#include "tests/attack/random_frame.h"

#include <algorithm>
#include <array>

namespace ruvex::attack {
namespace {

using test::Random;

constexpr std::array kFar{1e300, -1e300, 3e38,   -3e38, 1e10,         -1e10,         1e5,
                          -1e5,  1e-300, -1e-40, -0.0,  2147483648.0, -2147483648.0, 65536.0};
constexpr std::array kTimes{1e6, -1e6, 1e9, 1e300, -0.02, 86400.0, 1e-9, 3.3e4};
constexpr std::array kRates{1.0, 12.5, 23.976, 25.0, 30000.0 / 1001, 60.0, 120.0, 1000.0};
constexpr std::array kAspects{0.1, 0.9, 1.0, 16.0 / 15.0, 2.0, 10.0};
constexpr std::array kFamilies{DSFAMILY_Filter, DSFAMILY_Filter2, DSFAMILY_Paint,
                               DSFAMILY_WithoutInput};

double randomReal(Random& random, const ParameterRow& row) {
    const Range range = row.enteredRange().value_or(Range{-100.0, 100.0});
    const double high = std::min(range.high, range.low + 1000.0);
    const double width = high - range.low;
    switch (random.whole(0, 9)) {
        case 0:
            return range.low;
        case 1:
            return high;
        case 2:
            return random.oneOf(kFar);
        case 3:
            return range.low + width * 20.0 * random.real(-1.0f, 1.0f);
        default:
            return range.low + width * random.real(0.0f, 1.0f);
    }
}

int randomInt(Random& random, const ParameterRow& row) {
    if (isCheckBox(row.kind)) return random.whole(0, 1);
    // Each ghost is a pass over the picture: their number stays one that can be waited for.
    constexpr int kMostGhosts = 30;
    if (row.id == ParameterId::NumGhosts) return random.whole(-2, kMostGhosts);
    if (random.chance(15)) return random.whole(INT32_MIN, INT32_MAX);
    const auto range = row.enteredRange();
    const auto last = static_cast<int>(row.choices.size());
    return random.whole(-1, range ? static_cast<int>(std::min(range->high, 1e6)) : last);
}

looks::ParameterChange randomChange(Random& random, const ParameterRow& row) {
    if (!isReal(row.kind)) {
        return looks::Setting{row.id, static_cast<double>(randomInt(random, row))};
    }
    if (random.chance(75)) return looks::Setting{row.id, randomReal(random, row)};
    looks::Animation animation{row.id, {}};
    double seconds = random.real(-3.0f, 1.0f);
    for (int keys = random.whole(1, 4); keys > 0; --keys) {
        const auto mode = static_cast<looks::KeyMode>(random.whole(0, 2));
        animation.keys.push_back({seconds, randomReal(random, row), mode});
        seconds += random.real(0.001f, 2.0f);
    }
    return animation;
}

/// Places a span of an axis, often beyond it.
void place(Random& random, int size, LONG& from, LONG& length) {
    const int last = random.whole(0, size);
    from = random.chance(80) ? random.whole(0, last) : random.whole(-size, 2 * size);
    length = random.chance(90) ? random.whole(1, size) : random.whole(1, 10 * size);
}

}  // namespace

std::vector<looks::ParameterChange> randomLook(Random& random) {
    constexpr std::array kShares{5, 20, 50, 100};
    const int share = random.oneOf(kShares);
    std::vector<looks::ParameterChange> changes;
    for (const ParameterRow& row : parameterTable()) {
        if (random.chance(share)) changes.push_back(randomChange(random, row));
    }
    return changes;
}

FrameKind randomKind(Random& random) {
    constexpr int kLongestSide = 72;
    FrameKind kind;
    kind.width = random.whole(1, kLongestSide);
    kind.height = random.whole(1, kLongestSide);
    kind.project = {.width = kind.width,
                    .height = kind.height,
                    .pixelAspect = random.oneOf(kAspects),
                    .frameRate = random.oneOf(kRates)};
    if (random.chance(30)) kind.project.width = random.whole(1, 4000);
    if (random.chance(30)) kind.project.height = random.whole(1, 4000);
    kind.deep = random.chance(50);
    kind.workers = random.whole(1, 6);
    kind.provider = random.chance(70);
    kind.family = random.chance(70) ? DSFAMILY_Filter : random.oneOf(kFamilies);
    return kind;
}

FrameTask randomTask(Random& random, const FrameKind& kind) {
    FrameTask task;
    task.seconds = random.chance(90) ? random.whole(0, 200) / kind.project.frameRate
                                     : random.oneOf(kTimes) * random.real(0.5f, 1.0f);
    if (random.chance(30)) {
        task.region.emplace();
        place(random, kind.width, task.region->x, task.region->width);
        place(random, kind.height, task.region->y, task.region->height);
    }
    task.fieldMode = random.chance(80) ? 0 : random.whole(1, 2);
    task.seed = random.bits();
    task.mask = kind.family == DSFAMILY_Paint || random.chance(10);
    return task;
}

ComPtr<CDSMemoryImage> randomImage(const FrameKind& kind, std::uint32_t seed) {
    const GUID& format = kind.deep ? MFIF_RGBA_S2_14 : MFIF_RGBA_RAW_32;
    auto image = runtime::makeProjectImage(kind.project, kind.width, kind.height, format);
    Random random(seed);
    std::byte* const bytes = image->bytes();
    for (std::size_t i = 0; i < image->byteCount(); ++i) {
        bytes[i] = static_cast<std::byte>(random.bits() >> 13);
    }
    return image;
}

}  // namespace ruvex::attack
