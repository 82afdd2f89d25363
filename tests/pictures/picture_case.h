// What each stored picture shows.

#pragma once

#include <string>
#include <vector>

#include "tests/effect/support/broken_signal.h"

namespace ruvex::test {

/// One look of the effect, of the test card. The signal is perfect but for what is set.
struct PictureCase {
    std::string name;
    std::vector<Setting> settings;
    /// Whether the picture depends on the number of workers, as noise that starts anew with each
    /// share does. It is then stored for each number by itself.
    bool byWorkers = false;
    int frame = 12;
    double pixelAspect = 1.0;
};

const std::vector<PictureCase>& pictureCases();

/// The numbers of workers that every picture is rendered with.
inline constexpr int kWorkerCounts[] = {1, 2, 5};

/// The picture of a case, a quarter of its project's size in 8 bits and a fifth in S2.14.
template <class P>
Picture<P> renderCase(const PictureCase& look, int workers);

/// What a stored picture is called: look, format and, where it depends on them, workers.
template <class P>
std::string storedName(const PictureCase& look, int workers);

}  // namespace ruvex::test
