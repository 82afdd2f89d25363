// Random renders, from ordinary ones to those that nobody would ask for.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "looks/parameter_change.h"
#include "runtime/effect_session.h"
#include "runtime/images.h"
#include "tests/imaging/support/random.h"

namespace ruvex::attack {

/// Values and keys for some of the parameters: within their ranges, at the ends of these, and up to
/// the ends of what a number can hold.
std::vector<looks::ParameterChange> randomLook(test::Random& random);

/// A project, and pictures of a size of their own in it. Small, so that many fit into a minute.
struct FrameKind {
    runtime::Project project;
    int width = 1;
    int height = 1;
    bool deep = false;  ///< S2.14 instead of 8 bits.
    int workers = 1;
    bool provider = false;  ///< Whether the effect is given frames at other times.
    GUID family = DSFAMILY_Filter;
};

FrameKind randomKind(test::Random& random);

/// One frame of a kind: its time, its region and the seed of its pixels.
struct FrameTask {
    double seconds = 0.0;
    std::optional<DSRECT> region;
    LONG fieldMode = 0;
    std::uint32_t seed = 0;
    bool mask = false;
};

FrameTask randomTask(test::Random& random, const FrameKind& kind);

/// The image of a seed; the same bytes each time.
ComPtr<CDSMemoryImage> randomImage(const FrameKind& kind, std::uint32_t seed);

}  // namespace ruvex::attack
