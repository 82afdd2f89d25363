#include "effect/signal_series.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>

#include "effect/signal_chain.h"

namespace ruvex {
namespace {

// The starts of walks by the fraction of their positions: those with the same fraction form a
// chain.
using Chains = std::map<float, std::vector<ChainStart>>;

void addStart(Chains& chains, const ChainStart& start) {
    if (!walksOn(start.position)) return;
    chains[start.position - std::floor(start.position)].push_back(start);
}

std::vector<float> levelsOf(const SignalLevel& levels, const std::vector<FrameTime>& times,
                            const std::vector<TapePosition>& tapes) {
    std::vector<double> seconds(times.size()), playTimes(times.size());
    std::ranges::transform(times, seconds.begin(), &FrameTime::seconds);
    std::ranges::transform(tapes, playTimes.begin(), &TapePosition::playTime);
    return levels.atAll(seconds, playTimes);
}

}  // namespace

std::vector<SignalState> signalsAt(const ParameterReader& reader,
                                   const std::vector<FrameTime>& times,
                                   const std::vector<TapePosition>& tapes) {
    std::vector<SignalState> states(times.size());
    if (times.empty()) return states;
    const SignalLevel levels(reader, times.front().hostRate);
    const std::vector<float> breakups = levelsOf(levels, times, tapes);
    Chains chains;
    for (std::size_t i = 0; i < times.size(); ++i) {
        const FrameTime& time = times[i];
        const float position = tapes[i].sourcePosition;
        states[i].breakup = breakups[i];
        if (std::max(position, time.frame) > SignalChain::kLastExact) {
            states[i].walks = walkBack(reader, levels, time, position, breakups[i]);
            continue;
        }
        states[i].walks.verticalSum = verticalOffset(reader, time.seconds, breakups[i]);
        const bool sameFrames = time.frame == position;
        addStart(chains, {position, time.seconds, &states[i], true, sameFrames});
        if (!sameFrames) addStart(chains, {time.frame, time.seconds, &states[i], false, true});
    }
    for (auto& [fraction, starts] : chains) {
        if (interruptCheck(reader.interruption())) break;
        std::ranges::stable_sort(starts, std::ranges::greater{}, &ChainStart::position);
        SignalChain(reader, levels, starts.front().position, times.front().singleRate).walk(starts);
    }
    return states;
}

}  // namespace ruvex
