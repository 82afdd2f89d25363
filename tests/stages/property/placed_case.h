// Random televisions of which a part is made, or whose pictures lie or measure differently.

#pragma once

#include <algorithm>
#include <memory>

#include "tests/stages/property/television_case.h"

namespace ruvex::test {

/// A window in the target, some of whose sides may lie outside.
template <class P>
void chooseWindow(Random& random, Television<P>& set) {
    const int left = set.target.texture.x.offset, top = set.target.texture.y.offset;
    const int right = left + set.target.width() - 1, bottom = top + set.target.height() - 1;
    const auto side = [&](int low, int high) {
        return random.chance(15) ? random.whole(low - 20, high + 20) : random.whole(low, high);
    };
    Window& window = set.window.emplace();
    window.left = random.chance(20) ? left : side(left, right);
    window.right = random.chance(20) ? right : side(std::clamp(window.left, left, right), right);
    window.top = random.chance(20) ? top : side(top, bottom);
    window.bottom = random.chance(20) ? bottom : side(std::clamp(window.top, top, bottom), bottom);
    window.right = std::max(window.left, window.right);
    window.bottom = std::max(window.top, window.bottom);
    // What replaces a window ends before the last row or column, and so needs two.
    const bool enough = set.target.width() > 1 && set.target.height() > 1;
    set.keepWindow = enough && random.chance(20);
}

/// A source and a target of different sizes, either of which the signal may have, or another.
template <class P>
std::unique_ptr<Television<P>> unequalTelevision(Random& random) {
    using Size = typename Television<P>::Size;
    const Size from{random.whole(1, 40), random.whole(1, 40)};
    const bool near = random.chance(40);
    const Size to{near ? std::max(from.width + random.whole(-3, 3), 1) : random.whole(1, 60),
                  near ? std::max(from.height + random.whole(-3, 3), 1) : random.whole(1, 60)};
    auto set = std::make_unique<Television<P>>(from, to, random.bits());
    chooseSet(random, *set);
    const Size& size = random.chance(50) ? from : to;
    set->signal.width = static_cast<float>(size.width);
    set->signal.height = static_cast<float>(size.height);
    if (random.chance(30)) {
        set->signal.width = std::max(1.0f, set->signal.width - random.real(0.0f, 4.0f));
        set->signal.height = std::max(1.0f, set->signal.height - random.real(0.0f, 4.0f));
    }
    return set;
}

/// A picture that measures no whole number of pixels.
template <class P>
void chooseFraction(Random& random, Television<P>& set) {
    set.signal.width += random.real(0.0f, 0.999f);
    set.signal.height += random.real(0.0f, 0.999f);
}

}  // namespace ruvex::test
