#include "looks/sound_drift.h"

#include <algorithm>
#include <variant>

#include "looks/play_speed.h"

namespace ruvex::looks {
namespace {

bool isMoved(const Setting& setting) {
    return setting.value != kNormalPlaySpeed;
}

bool isMoved(const Animation& animation) {
    return std::ranges::any_of(animation.keys,
                               [](const Key& key) { return key.value != kNormalPlaySpeed; });
}

double largest(const Setting& setting) {
    return setting.value;
}

double largest(const Animation& animation) {
    return std::ranges::max(animation.keys, {}, &Key::value).value;
}

}  // namespace

bool movesPictures(std::span<const ParameterChange> changes) {
    bool moved = false;
    for (const ParameterChange& change : changes) {
        if (rowOf(change).id != ParameterId::PlaySpeed) continue;
        moved = std::visit([](const auto& either) { return isMoved(either); }, change);
    }
    return moved;
}

int framesBehind(std::span<const ParameterChange> changes) {
    double repeated = 1.0;
    for (const ParameterChange& change : changes) {
        if (rowOf(change).id != ParameterId::RepeatFrames) continue;
        repeated = std::visit([](const auto& either) { return largest(either); }, change);
    }
    return std::max(0, static_cast<int>(repeated) - 1);
}

}  // namespace ruvex::looks
