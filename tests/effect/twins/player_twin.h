// Which source frame is shown and how the tape runs, step by step as it is told.

#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "tests/effect/twins/signal_twin.h"

namespace ruvex::twin {

struct PlayerTwin {
    const ParameterReader& parameters;
    double sampleRate;

    double speed(double t) const { return parameters.rawReal(ParameterId::PlaySpeed, t); }
    float frameRate() const { return static_cast<float>(sampleRate); }

    /// One sample of the integral: taken at `moment`, it holds for `length` seconds.
    struct Sample {
        double moment, value, length;
    };

    std::vector<Sample> samples(double time) const {
        std::vector<Sample> all;
        const double dt = 1.0 / sampleRate;
        float t = 0.0f;
        while (time >= t + dt) {
            all.push_back({t, speed(t), dt});
            t = static_cast<float>(t + dt);
        }
        if (time - t > 0.0) all.push_back({t, speed(time), time - t});
        return all;
    }

    double playTime(double time) const {
        if (time <= 0.0) return 0.0;
        double sum = 0.0;
        bool normal = true;
        for (const Sample& sample : samples(time)) {
            if (normal && sample.value != 100.0) {
                normal = false;
                sum = 100.0 * sample.moment;
            }
            if (!normal) sum += sample.value * sample.length;
        }
        return normal ? time : sum / 100.0;
    }

    static std::int32_t frameAt(float position) {
        const std::int32_t cut = whole(position);
        const bool isWhole = static_cast<float>(cut) == position;
        const std::int32_t ceiling = position > 0.0f && !isWhole ? cut + 1 : cut;
        if (static_cast<float>(ceiling) - position < 0.01) return ceiling;
        if (position < 0.0f && !isWhole) return cut - 1;
        return cut;
    }

    /// The frame that is looked at, given the frame that the tape stands at.
    float shown(std::int32_t frame) const {
        const std::int32_t repeat = parameters.integer(ParameterId::RepeatFrames);
        return static_cast<float>(repeat < 1 ? frame : frame - frame % repeat);
    }

    struct State {
        int state, framesAtLowSpeed;
        float speedAtStart;
    };

    State stateAt(double time) const {
        double now = speed(time);
        State result{};
        result.state = std::fabs(now) < 100.0 ? 1 : now == 100.0 ? 2 : 0;
        auto frame = static_cast<float>(frameRate() * time);
        while (std::fabs(now) < 100.0 && frame > 0.01) {
            result.framesAtLowSpeed += 1;
            frame -= 1.0f;
            now = speed(frame / frameRate());
        }
        result.speedAtStart = static_cast<float>(now * kHundredth);
        return result;
    }
};

}  // namespace ruvex::twin
