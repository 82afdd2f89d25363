#include "effect/signal_chain.h"

#include <algorithm>
#include <iterator>

#include "effect/walk_check.h"
#include "stages/threshold.h"

namespace ruvex {
namespace {

// Walks that are summed side by side, each in the order of its own steps: an addition has to wait
// for the one before it in its own walk, and in that time the processor adds for the others.
constexpr std::size_t kLanes = 16;

}  // namespace

SignalChain::SignalChain(const ParameterReader& reader, const SignalLevel& levels, float latest,
                         float frameRate)
    : reader_(reader),
      latest_(latest),
      lineSteps_(reader, frameRate),
      rollSteps_(reader, frameRate),
      moments_(momentsBack(latest, frameRate)),
      levels_(levels.atEarlier(moments_)) {
    makeLines();
    makeRolls();
}

void SignalChain::makeLines() {
    lines_.resize(moments_.size());
    WalkCheck check(reader_.interruption());
    for (std::size_t i = 1; i < lines_.size() && !check.stops(); ++i) {
        lines_[i] = lineSteps_.distance(levels_[i - 1], moments_[i]);
    }
}

void SignalChain::makeRolls() {
    rolls_.resize(moments_.size());
    WalkCheck check(reader_.interruption());
    for (std::size_t i = rolls_.size(); i-- > 0 && !check.stops();) {
        Roll& roll = rolls_[i];
        roll.threshold = rollSteps_.threshold(moments_[i]);
        roll.last = static_cast<std::uint32_t>(i);
        if (!RollSteps::rolls(roll.threshold)) continue;
        roll.distance = rollSteps_.distance(levels_[i], moments_[i], roll.threshold);
        const bool goesOn = i + 1 < rolls_.size() && RollSteps::rolls(rolls_[i + 1].threshold) &&
                            aboveThreshold(levels_[i + 1], roll.threshold);
        if (goesOn) roll.last = rolls_[i + 1].last;
    }
}

std::size_t SignalChain::indexOf(const ChainStart& start) const {
    return static_cast<std::size_t>(latest_ - start.position);
}

void SignalChain::walk(std::span<const ChainStart> starts) const {
    countShash(starts);
    std::vector<ChainStart> ofTape;
    std::ranges::copy_if(starts, std::back_inserter(ofTape), &ChainStart::ofTape);
    for (std::size_t i = 0; i < ofTape.size(); i += kLanes) {
        if (interruptCheck(reader_.interruption())) return;
        const Block block = Block(ofTape).subspan(i, std::min(kLanes, ofTape.size() - i));
        sumLines(block);
        sumRolls(block);
    }
}

void SignalChain::countShash(std::span<const ChainStart> starts) const {
    for (const ChainStart& start : starts) {
        if (interruptCheck(reader_.interruption())) return;
        if (start.ofOutput) start.state->walks.shashFramesOn = framesWithShash(start);
    }
}

// The first step acts by the frame's own level, each other one by that of the step before it.
void SignalChain::sumLines(Block starts) const {
    const std::size_t common = indexOf(starts.back()) + 1;  // the first step that all walks have
    double sums[kLanes] = {};
    for (std::size_t lane = 0; lane < starts.size(); ++lane) {
        const std::size_t first = indexOf(starts[lane]);
        sums[lane] += lineSteps_.distance(starts[lane].state->breakup, moments_[first]);
        for (std::size_t i = first + 1; i < common; ++i) sums[lane] += lines_[i];
    }
    for (std::size_t i = common; i < lines_.size(); ++i) {
        for (double& sum : sums) sum += lines_[i];
    }
    for (std::size_t lane = 0; lane < starts.size(); ++lane) {
        starts[lane].state->walks.lineSum = sums[lane];
    }
}

// A walk ends where the roll began. Those that have not ended before the common steps all end at
// the same one.
void SignalChain::sumRolls(Block starts) const {
    const std::size_t common = indexOf(starts.back()) + 1;
    std::size_t end = common;
    std::int32_t sums[kLanes] = {};
    bool goesOn[kLanes] = {};
    for (std::size_t lane = 0; lane < starts.size(); ++lane) {
        const std::size_t last = rollToCommon(starts[lane], common, sums[lane]);
        goesOn[lane] = last >= common;
        end = std::max(end, last + 1);
        if (!goesOn[lane]) starts[lane].state->walks.verticalSum = sums[lane];
    }
    for (std::size_t i = common; i < end; ++i) {
        for (std::int32_t& sum : sums) sum = RollSteps::added(sum, rolls_[i].distance);
    }
    for (std::size_t lane = 0; lane < starts.size(); ++lane) {
        if (goesOn[lane]) starts[lane].state->walks.verticalSum = sums[lane];
    }
}

// Stores the sum of the steps before `common`. Returns the index of the roll's last step, 0 if the
// picture does not roll.
std::size_t SignalChain::rollToCommon(const ChainStart& start, std::size_t common,
                                      std::int32_t& sum) const {
    const auto& [breakup, walks] = *start.state;
    sum = walks.verticalSum;
    const std::size_t first = indexOf(start);
    const Roll& roll = rolls_[first];
    const float threshold = thresholdAt(reader_, ParameterId::VertRollThreshold, start.seconds);
    if (!actsAt(breakup, threshold) || !RollSteps::rolls(roll.threshold)) return 0;
    sum = RollSteps::added(sum, rollSteps_.distance(breakup, moments_[first], roll.threshold));
    const std::size_t end = std::min<std::size_t>(roll.last + 1, common);
    for (std::size_t i = first + 1; i < end; ++i) {
        sum = RollSteps::added(sum, rolls_[i].distance);
    }
    return roll.last;
}

// Each of the frames from the start on down to the first counts with the level of the step before
// it, the first two with the frame's own.
std::int32_t SignalChain::framesWithShash(const ChainStart& start) const {
    const float threshold = thresholdAt(reader_, ParameterId::ShashThreshold, start.seconds);
    const auto acts = [=](float level) { return actsAt(level, threshold); };
    const auto first = levels_.begin() + static_cast<std::ptrdiff_t>(indexOf(start));
    return acts(start.state->breakup) +
           static_cast<std::int32_t>(std::count_if(first, levels_.end() - 1, acts));
}

}  // namespace ruvex
