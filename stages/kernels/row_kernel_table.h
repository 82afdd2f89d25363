// The table of loops, filled once per instruction set.

#pragma once

#include "stages/kernels/ghost_loops.h"
#include "stages/kernels/grain_loops.h"
#include "stages/kernels/row_kernels.h"
#include "stages/kernels/shash_loops.h"
#include "stages/kernels/signal_loops.h"

namespace ruvex::detail {

template <class P, class Processor>
inline constexpr RowKernels<P> kRowKernels{
    .clampToRange = SignalLoops<P, Processor>::clampToRange,
    .loseColour = SignalLoops<P, Processor>::loseColour,
    .loseColourApart = SignalLoops<P, Processor>::loseColourApart,
    .saturate = SignalLoops<P, Processor>::saturate,
    .addGhosts = GhostLoops<P, Processor>::addGhosts,
    .hashColour = GrainLoops<P, Processor>::hashColour,
    .hashGrey = GrainLoops<P, Processor>::hashGrey,
    .addGrain = GrainLoops<P, Processor>::addGrain,
    .addSoftGrain = GrainLoops<P, Processor>::addSoftGrain,
    .points = ShashLoops<P, Processor>::points,
    .bars = ShashLoops<P, Processor>::bars,
    .dim = SignalLoops<P, Processor>::dim,
    .dashes = ShashLoops<P, Processor>::dashes};

}  // namespace ruvex::detail
