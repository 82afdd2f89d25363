// The table of loops, to be filled by one processor's source after another.

#pragma once

#include "stages/ghost_loops.h"
#include "stages/grain_loops.h"
#include "stages/row_kernels.h"
#include "stages/signal_loops.h"

namespace ruvex::detail {

template <class P, class Processor>
inline constexpr RowKernels<P> kRowKernels{
    SignalLoops<P, Processor>::hold,      SignalLoops<P, Processor>::lose,
    SignalLoops<P, Processor>::loseApart, SignalLoops<P, Processor>::finish,
    GhostLoops<P, Processor>::haunt,      GrainLoops<P, Processor>::hashColour,
    GrainLoops<P, Processor>::hashGrey,   GrainLoops<P, Processor>::addGrain};

}  // namespace ruvex::detail
