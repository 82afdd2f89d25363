// A television of a test's own: a source, a set without faults, and the picture that it shows.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "imaging/noise/gradient_noise.h"
#include "stages/ruvex_sampler.h"
#include "tests/imaging/support/canvas.h"
#include "tests/imaging/support/white.h"

namespace ruvex::test {

/// A perfect signal on a neutral set.
inline SignalParameters perfectSignal(std::int32_t width, std::int32_t height) {
    SignalParameters signal;
    signal.scale = 1.0f;
    signal.width = static_cast<float>(width);
    signal.height = static_cast<float>(height);
    signal.colour = 1.0f;
    signal.colourThreshold = signal.ghostThreshold = signal.edgeThreshold = 1.0f;
    signal.snowThreshold = signal.lineThreshold = signal.shashThreshold = 1.0f;
    signal.edgeOctaves = 8;
    signal.lineAngle = 0.17453294f;
    signal.lineSpacing = 50.0f;
    signal.playState = PlayState::Normal;
    signal.whiteDotSoftness = 0.05f;
    signal.noiseTable = &noiseTable();
    return signal;
}

/// Components from 0 to the top; the alpha of any value that the storage has.
template <class P>
void fillWithSignal(Canvas<P>& canvas, Random& random) {
    canvas.scribble(random);
    for (P& pixel : canvas.memory) {
        for (int k = 0; k < 3; ++k) {
            pixel.c[k] =
                static_cast<typename P::Component>(pixel.c[k] & (sizeof(P) == 4 ? 0xFF : 0x7FFF));
        }
    }
}

struct Window {
    std::int32_t left, top, right, bottom;
};

template <class P>
struct Television {
    Television(std::int32_t width, std::int32_t height, std::uint32_t seed = 1)
        : Television({width, height}, {width, height}, seed) {}

    /// A source and a target of different sizes; the signal's is the source's.
    struct Size {
        std::int32_t width, height;
    };
    Television(Size from, Size to, std::uint32_t seed = 1)
        : signal(perfectSignal(from.width, from.height)),
          source(from.width, from.height),
          target(to.width, to.height) {
        Random random(seed);
        fillWithSignal(source, random);
        target.scribble(random);
    }

    /// Runs the set; the picture is in `target`.
    Television& run() {
        sampler.emplace();
        sampler->signal = signal;
        sampler->scaleX = aspect;
        sampler->scaleY = 1.0f / aspect;
        sampler->interrupt = &record;
        sampler->keepWindow = keepWindow;
        sampler->useThreads = useThreads;
        sampler->memory = memory;
        if (window) sampler->setWindow(window->left, window->top, window->right, window->bottom);
        sampler->process(inPlace ? target.texture : source.texture, target.texture);
        return *this;
    }
    /// Places the target elsewhere in image space.
    void placeTarget(std::int32_t x, std::int32_t y) {
        target.texture.x.offset = x;
        target.texture.y.offset = y;
    }
    const P& shown(std::int32_t x, std::int32_t y) { return target.at(x, y); }
    const P& sent(std::int32_t x, std::int32_t y) { return source.at(x, y); }

    /// Whether the pictures, without what lies around them, are the same.
    bool unchanged() { return samePicture(source, target); }
    static bool samePicture(Canvas<P>& a, Canvas<P>& b) {
        for (std::int32_t y = 0; y < a.height(); ++y) {
            for (std::int32_t x = 0; x < a.width(); ++x) {
                if (!(a.at(x, y) == b.at(x, y))) return false;
            }
        }
        return true;
    }

    SignalParameters signal;
    float aspect = 1.0f;
    Canvas<P> source;
    Canvas<P> target;
    std::optional<Window> window;  ///< inclusive corners; without it the whole picture is made
    bool inPlace = false;          ///< the target is its own source
    bool keepWindow = false;
    bool useThreads = true;
    FrameMemory<P>* memory = nullptr;  ///< what earlier frames left; not owned
    InterruptionRecord record;
    std::optional<RuvexSampler<P>> sampler;
};

/// What differs around the picture of a canvas from how its memory was before; empty if nothing.
template <class P>
std::string differenceAround(Canvas<P>& canvas, std::vector<P> before) {
    for (std::int32_t y = 0; y < canvas.height(); ++y) {
        for (std::int32_t x = 0; x < canvas.width(); ++x) {
            before[canvas.indexOf(x, y)] = canvas.at(x, y);
        }
    }
    return firstDifference(canvas.memory, before);
}

/// Every fault at once, none of which hides another: edges, colours, ghosts, soft snow, lines, a
/// recorder that winds, and streaks of a set without a signal.
inline void makeFaulty(SignalParameters& signal) {
    signal.breakup = 0.9f;
    signal.colourThreshold = signal.ghostThreshold = signal.edgeThreshold = 0.0f;
    signal.snowThreshold = signal.lineThreshold = signal.shashThreshold = 0.0f;
    signal.colourDegradeMax = 0.3f;
    signal.numGhosts = 3;
    signal.ghostDistance = 40.0f;
    signal.ghostStrength = 0.5f;
    signal.edgeDistortionMax = 30.0f;
    signal.edgeJaggedness = 3.0f;
    signal.snowMax = 0.5f;
    signal.snowSoftness = 2.0f;
    signal.lineSpacing = 10.0f;
    signal.playState = PlayState::Winding;
    signal.playSpeedAtStart = 2.0f;
    signal.shashAmountMax = 0.5f;
    signal.shashType = ShashType::Streaks;
}

}  // namespace ruvex::test
