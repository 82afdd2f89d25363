#include "looks/sound_drift.h"

#include <algorithm>
#include <variant>

namespace ruvex::looks {
namespace {

constexpr double kNormalSpeed = 100.0;

bool isMoved(const Setting& setting) {
    return setting.value != kNormalSpeed;
}

bool isMoved(const Animation& animation) {
    return std::ranges::any_of(animation.keys,
                               [](const Key& key) { return key.value != kNormalSpeed; });
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

}  // namespace ruvex::looks
