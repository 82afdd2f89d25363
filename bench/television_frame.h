// A frame of the television to be timed.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "bench/frames.h"
#include "parameters/parameter_table.h"
#include "parameters/presets.h"
#include "runtime/effect_session.h"
#include "runtime/images.h"

namespace ruvex::bench {

struct FrameSize {
    int width, height;
};
/// The number of the preset whose frames most benchmarks render.
inline constexpr int kBadColourTv = 1;

using Settings = std::vector<std::pair<ParameterId, double>>;

/// A session over the module of this build, with a preset chosen, and the pictures of one frame:
/// number 60 at 25 frames a second, where the level of "Bad Colour TV" is at its highest within ten
/// seconds and all of its stages act.
class TelevisionFrame {
public:
    TelevisionFrame(FrameSize size, const GUID& format, int workers, int preset);

    void set(const Settings& settings);

    /// Makes the source anew and returns how long the memcpy took, in seconds.
    double copySource();
    /// Renders the frame and returns how long that took, in seconds.
    double render();
    /// Of one picture.
    std::size_t bytes() const { return master_->byteCount(); }

private:
    runtime::Project project_;
    ComPtr<CDSMemoryImage> master_, input_, output_;
    runtime::EffectSession session_;
};

}  // namespace ruvex::bench
