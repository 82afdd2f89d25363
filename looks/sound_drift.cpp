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
