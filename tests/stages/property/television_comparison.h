// A television's picture against the one that the twins put together.

#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>
#include <string>

#include "tests/imaging/support/workers.h"
#include "tests/stages/property/television_case.h"
#include "tests/stages/twins/television_twin.h"

namespace ruvex::test {

/// The picture of a canvas, with its first pixel at (left, top).
template <class P>
TwinPicture<P> twinOf(Canvas<P>& canvas, int left, int top) {
    TwinPicture<P> picture(left, top, canvas.width(), canvas.height());
    picture.area().forEach([&](int x, int y) { picture.at(x, y) = canvas.at(x - left, y - top); });
    return picture;
}

/// What a frame makes of a target: all of it, or what its window leaves. A window that sticks out
/// is cut; one that is to be kept is replaced, and then ends before the last row or column.
template <class P>
TwinArea madeTwin(const Television<P>& set, const TwinArea& all) {
    TwinArea made = all;
    if (set.window) {
        made = {set.window->left, set.window->top, set.window->right + 1, set.window->bottom + 1};
    }
    const auto replace = [](int& first, int& end, int low, int high) {
        if (first >= low && end <= high) return;
        first = low;
        end = high;
    };
    if (set.keepWindow) {
        replace(made.left, made.right, all.left, all.right - 1);
        replace(made.top, made.bottom, all.top, all.bottom - 1);
        return made;
    }
    return grownTwin(made, {0, 0}, all);
}

/// Says where the picture first differs from a wanted one, or whether something was written around
/// it; empty if neither.
template <class P>
std::string pictureDifference(Television<P>& set, const std::vector<P>& before,
                              TwinPicture<P>& wanted) {
    std::vector<P> around = before;
    for (int y = 0; y < wanted.height; ++y) {
        for (int x = 0; x < wanted.width; ++x) {
            const P& got = set.target.at(x, y);
            const P& want = wanted.at(wanted.left + x, wanted.top + y);
            around[set.target.indexOf(x, y)] = want;
            if (got == want) continue;
            std::ostringstream text;
            text << "pixel " << x << ", " << y << " of " << wanted.width << "x" << wanted.height
                 << ':';
            for (int k = 0; k < 4; ++k) text << ' ' << +got.c[k] << '/' << +want.c[k];
            return text.str() + " (got/wanted)";
        }
    }
    const std::string outside = firstDifference(set.target.memory, around);
    return outside.empty() ? outside : "around the picture: " + outside;
}

/// Runs the set with that many workers and says where its picture first differs from the twin's;
/// empty if it does not.
template <class P>
std::string televisionDifference(Television<P>& set, int workers) {
    Workers fixed(workers);
    const VxTexture<P>& target = set.target.texture;
    const TwinPicture<P> before = twinOf(set.target, target.x.offset, target.y.offset);
    TwinPicture<P> source = twinOf(set.source, 0, 0);
    const TwinRun run{set.aspect, workers, madeTwin(set, before.area())};
    TwinPicture<P> wanted = televisionTwin(source, before, set.signal, run);
    const std::vector<P> memory = set.target.memory;
    set.run();
    return pictureDifference(set, memory, wanted);
}

/// Compares the televisions that make(random) gives, with 1 to 9 workers.
template <class Make>
void compareSets(int count, Make make) {
    for (int i = 0; i < count; ++i) {
        Random random(static_cast<std::uint32_t>(i) + 1);
        auto set = make(random);
        const int workers = random.whole(1, 9);
        ASSERT_EQ(televisionDifference(*set, workers), "")
            << "case " << i << ", " << workers << " workers";
    }
}

/// Compares random televisions, with what `choose` makes faulty.
template <class P, class Choose>
void compareCases(int count, Choose choose) {
    compareSets(count, [&](Random& random) {
        auto set = randomTelevision<P>(random);
        choose(random, set->signal);
        return set;
    });
}

}  // namespace ruvex::test
