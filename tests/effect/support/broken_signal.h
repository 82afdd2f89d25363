// A signal that breaks up and a set that shows nothing of it, so that a test turns on one fault.

#pragma once

#include <initializer_list>
#include <vector>

#include "parameters/artefacts.h"
#include "tests/effect/render_fixture.h"
#include "tests/imaging/support/white.h"

namespace ruvex::test {

struct Setting {
    ParameterId id;
    double value;
};

/// Every artefact with a threshold that no level reaches.
inline std::vector<Setting> noFault() {
    std::vector<Setting> settings;
    for (const Artefact& artefact : artefacts()) settings.push_back({artefact.threshold, 100});
    return settings;
}

/// A project of a size, a signal at a level of one half, and `faults`.
class FaultySet : public Renderer {
public:
    FaultySet(int width, int height, std::initializer_list<Setting> faults,
              std::shared_ptr<runtime::InputProvider> provider = nullptr)
        : Renderer({.width = width, .height = height}, std::move(provider)) {
        set(ParameterId::MasterBreakup, 50);
        for (const Setting& setting : noFault()) set(setting.id, setting.value);
        for (const Setting& setting : faults) set(setting.id, setting.value);
    }

    using Renderer::set;

    /// Frame `number` at 25 a second.
    template <class P>
    Picture<P> frame(const Picture<P>& input, int number = 0) {
        return render(input, runtime::frameTime(number, project().frameRate));
    }
};

/// One colour all over.
template <class P>
Picture<P> plain(int width, int height, const P& colour) {
    return {width, height, std::vector<P>(static_cast<std::size_t>(width) * height, colour)};
}

template <class P>
P colourOf(int red, int green, int blue, int alpha = 0) {
    using Component = typename P::Component;
    return {{static_cast<Component>(red), static_cast<Component>(green),
             static_cast<Component>(blue), static_cast<Component>(alpha)}};
}

/// Every component says where it stands: column + 100 * row + 1.
inline Picture<RgbaS214> placePicture(int width, int height) {
    Picture<RgbaS214> picture{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const int code = x + 100 * y + 1;
            picture.pixels.push_back(colourOf<RgbaS214>(code, code, code, code));
        }
    }
    return picture;
}

}  // namespace ruvex::test
