// One random render under attack: frame by frame, again, by clones at once, and stopped at a random
// moment.

#pragma once

#include <chrono>
#include <cstdint>
#include <stdexcept>

namespace ruvex::attack {

using Seconds = std::chrono::duration<double>;

struct Counts {
    std::int64_t cases = 0;
    std::int64_t frames = 0;    ///< All that were begun.
    std::int64_t byClones = 0;  ///< Of these: rendered by a clone while others rendered too.
    std::int64_t stopped = 0;   ///< Of these: a stop was requested, and ended them.
    std::int64_t refused = 0;   ///< Of these: the effect refused the request.
    std::int64_t slow = 0;      ///< Cases that were given up because they took too long.
    Seconds longestStop{0};     ///< From a request to stop to the end of the frame.

    Counts& operator+=(const Counts& other);
};

/// Two renders of one frame differ.
class Difference : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The case of a seed: the same look, pictures and times each time. Only when a stop arrives is
/// left to chance. Throws Difference.
Counts runCase(std::uint32_t seed);

}  // namespace ruvex::attack
