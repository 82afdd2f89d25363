#include "runtime/time_follower.h"

#include <algorithm>

#include "runtime/editor.h"

namespace ruvex::runtime {

TimeFollower::TimeFollower(Editor& editor, TimeOrder order) : editor_(editor), order_(order) {
    std::vector<TimeFollower*>& all = editor_.followers_;
    all.insert(std::ranges::upper_bound(all, order_, {}, &TimeFollower::order_), this);
}

void TimeFollower::stopFollowing() {
    std::erase(editor_.followers_, this);
}

}  // namespace ruvex::runtime
