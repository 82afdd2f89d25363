// The values of options: sizes, ranges of frames, regions, fractions, numbers, words.

#include <cmath>
#include <limits>
#include <numeric>

#include "cli/media_options.h"
#include "cli/option_text.h"
#include "cli/usage_error.h"
#include "jobs/clip_ends.h"
#include "parameters/label_match.h"
#include "parameters/presets.h"
#include "tests/fuzz/fuzz.h"

namespace {

using namespace ruvex;
using namespace ruvex::cli;
using fuzz::demand;

const std::string kOption = "--option";

/// What `parse` makes of the text, which it may refuse with a sentence that begins with the option.
template <class Parse>
auto accepted(Parse parse) {
    return fuzz::unlessRefused<UsageError>(
        parse, [](std::string_view sentence) { fuzz::demandNamed(sentence, kOption); });
}

void demandOnly(std::string_view text, std::string_view letters) {
    demand(text.find_first_not_of(letters) == std::string_view::npos,
           "a value is written with digits and its own marks alone");
}

void trySize(std::string_view text) {
    const auto size = accepted([&] { return parseSize(kOption, text); });
    if (!size) return;
    demandOnly(text, "0123456789x");
    demand(size->width >= 1 && size->height >= 1, "a size has pixels");
    demand(parseSize(kOption, toText(*size)) == *size, "a size reads back");
}

void tryFrames(std::string_view text) {
    const auto frames = accepted([&] { return parseFrames(kOption, text); });
    if (!frames) return;
    demandOnly(text, "0123456789-");
    demand(
        0 <= frames->first && frames->first <= frames->last && frames->last < jobs::kFrameNumberEnd,
        "a range lies among the frame numbers");
    const jobs::FrameRange again =
        parseFrames(kOption, std::to_string(frames->first) + "-" + std::to_string(frames->last));
    demand(again.first == frames->first && again.last == frames->last, "a range reads back");
}

void tryRegion(std::string_view text) {
    const auto region = accepted([&] { return parseRegion(kOption, text); });
    if (!region) return;
    demandOnly(text, "0123456789,");
    demand(region->x >= 0 && region->y >= 0 && region->width >= 1 && region->height >= 1,
           "a region has pixels");
    std::string written;
    for (const int value : {region->x, region->y, region->width, region->height}) {
        written.append(written.empty() ? "" : ",").append(std::to_string(value));
    }
    const jobs::Region again = parseRegion(kOption, written);
    demand(again.x == region->x && again.y == region->y && again.width == region->width &&
               again.height == region->height,
           "a region reads back");
}

void tryFraction(std::string_view text) {
    const auto fraction = accepted([&] { return parseFraction(kOption, text); });
    if (!fraction) return;
    demandOnly(text, "0123456789./");
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    demand(fraction->num >= 1 && fraction->num <= kMost && fraction->den >= 1 &&
               fraction->den <= kMost && std::gcd(fraction->num, fraction->den) == 1,
           "a fraction is above 0, in lowest terms, of 31 bits");
    demand(parseFraction(kOption, toText(*fraction)) == *fraction, "a fraction reads back");
}

void tryNumbers(std::string_view text) {
    const auto part = accepted([&] { return parsePart(kOption, text); });
    demand(!part || (*part >= 0.0 && *part <= 1.0 && !std::signbit(*part)), "a part is of a whole");
    const auto whole = accepted([&] { return parseWhole(kOption, text, 1, 100); });
    demand(!whole || (*whole >= 1 && *whole <= 100), "a whole number lies in its range");
    demand(!whole || parseWhole(kOption, std::to_string(*whole), 1, 100) == *whole,
           "a whole number reads back");
}

void trySeconds(std::string_view text) {
    const auto seconds = accepted([&] { return parseSeconds(kOption, text); });
    demand(!seconds || std::isfinite(*seconds), "a time is finite");
}

void tryWords(const std::string& text) {
    const bool ends = accepted([&] { return parseEnds(kOption, text); }).has_value();
    demand(ends == (text == "blank" || text == "hold" || text == "loop"), "three ends are known");
    const bool alpha = accepted([&] { return parseAlpha(kOption, text); }).has_value();
    demand(alpha == (text == "straight" || text == "premultiplied"), "two forms are known");
    const bool format = accepted([&] { return parseStreamFormat(kOption, text); }).has_value();
    demand(format == (text == "y4m" || text == "rgba8" || text == "s214"), "three are known");
    const bool order = accepted([&] { return parseFieldOrder(kOption, text); }).has_value();
    demand(order == (text == "top" || text == "bottom" || text == "none"), "three are known");
    const auto preset = findPreset(text);
    demand(!preset || labelsMatch(presetNames()[static_cast<std::size_t>(*preset)], text),
           "a preset has the name that was asked for");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::textOf(data, size);
    trySize(text);
    tryFrames(text);
    tryRegion(text);
    tryFraction(text);
    tryNumbers(text);
    trySeconds(text);
    tryWords(std::string(text));
    return 0;
}
