// Which frames a render makes: all, or those that an earlier one has left out.

#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <stop_token>

#include "jobs/render_plan.h"

namespace ruvex::jobs {

/// The frames to render: a range without those whose results exist already.
struct FramesToMake {
    FrameRange range;
    std::set<std::int64_t> made{};
    bool endless = false;  ///< The input may end before the range does, and the render with it.

    /// How many; empty if that is not known beforehand.
    std::optional<std::int64_t> count() const {
        if (endless) return std::nullopt;
        return range.count() - static_cast<std::int64_t>(made.size());
    }
};

/// The plan's frames; if it resumes, without those whose files are complete pictures of the right
/// size, and later than `keptAfter`. Which parameters a picture was made with cannot be seen.
/// Incomplete if a stop is
/// requested.
FramesToMake framesToMake(const RenderPlan& plan, const std::stop_token& stop = {});

}  // namespace ruvex::jobs
