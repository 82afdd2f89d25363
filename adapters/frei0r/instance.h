// One effect in a host: its parameters, its clock and its pictures.

#pragma once

#include <cstdint>
#include <mutex>

#include "adapters/common/hosted_effect.h"
#include "adapters/frei0r/frame_clock.h"
#include "adapters/frei0r/parameter_values.h"

namespace ruvex::frei0r {

/// Any number of threads may call an instance at once, and each call is whole: hosts render slices
/// of a picture concurrently on one instance.
class Instance {
public:
    /// For pictures of this size, in pixels. Takes no memory for them, since hosts make instances
    /// of every plug-in only to read the defaults.
    Instance(unsigned width, unsigned height);

    void setParameter(int index, const void* value);
    void getParameter(int index, void* value) const;

    /// Renders a picture of RGBA bytes, top row first, at a time as in FrameClock. If the effect
    /// cannot render, the result is the input; without an input it is transparent. Does nothing
    /// without an output or without pixels.
    void update(double time, const std::uint32_t* input, std::uint32_t* output);

private:
    adapters::FrameRequest requestAt(double time);

    const unsigned width_;
    const unsigned height_;
    mutable std::mutex mutex_;
    ParameterValues values_;
    FrameClock clock_;
    adapters::HostedEffect effect_;
};

}  // namespace ruvex::frei0r
