#include "adapters/frei0r/instance.h"

#include <algorithm>
#include <climits>

namespace ruvex::frei0r {
namespace {

constexpr std::uint32_t kTransparent = 0;
constexpr unsigned kLongestSide = INT_MAX;
/// More than any memory holds; the bytes of a larger picture could not be counted.
constexpr std::uint64_t kMostPixels = std::uint64_t{1} << 40;

bool isPictureSize(std::uint64_t width, std::uint64_t height) {
    return width > 0 && height > 0 && width <= kLongestSide && height <= kLongestSide &&
           width * height <= kMostPixels;
}

}  // namespace

Instance::Instance(unsigned width, unsigned height) : width_(width), height_(height) {}

void Instance::setParameter(int index, const void* value) {
    const std::lock_guard lock(mutex_);
    values_.set(index, value);
}

void Instance::getParameter(int index, void* value) const {
    const std::lock_guard lock(mutex_);
    values_.get(index, value);
}

void Instance::update(double time, const std::uint32_t* input, std::uint32_t* output) {
    if (!output || !isPictureSize(width_, height_)) return;
    if (!input) {
        std::fill_n(output, std::size_t{width_} * height_, kTransparent);
        return;
    }
    const std::lock_guard lock(mutex_);
    const auto width = static_cast<int>(width_);
    const auto height = static_cast<int>(height_);
    effect_.render(
        requestAt(time),
        adapters::topDownRows(reinterpret_cast<const std::uint8_t*>(input), width, height),
        adapters::topDownRows(reinterpret_cast<std::uint8_t*>(output), width, height));
}

adapters::FrameRequest Instance::requestAt(double time) {
    using enum adapters::PlugInAlpha;
    const double rate = values_.framesPerSecond();
    return {.frame = clock_.frameAt(time, rate, values_.timeUnit()),
            .frameRate = rate,
            .look = values_.look(),
            .values = values_.valuesOverLook(),
            .alpha = values_.effectAlpha() ? Effect : Input};
}

}  // namespace ruvex::frei0r
