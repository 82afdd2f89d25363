// A planned render, from the first frame of its input to the complete result.

#pragma once

#include <functional>
#include <memory>
#include <stop_token>
#include <string>

#include "jobs/pipeline.h"

namespace ruvex::jobs {

/// How a front end follows a render. Called on the thread of runRender.
class RenderEvents {
public:
    virtual ~RenderEvents() = default;

    /// The frames that are going to be rendered, before the first of them.
    virtual void begun(const FramesToMake& frames) { static_cast<void>(frames); }
    /// A sentence about the result that the user should know.
    virtual void remark(const std::string& sentence) { static_cast<void>(sentence); }
    /// A frame has been written. An encoder holds frames back, so this may be a while after it was
    /// rendered.
    virtual void frameWritten() {}
    /// What was held for pictures, by the effect too, but not by codecs, after
    /// the last frame.
    virtual void memoryUsed(const media::HeldMemory& held) { static_cast<void>(held); }
    /// The result is complete.
    virtual void finished() {}
};

enum class RenderEnd {
    Finished,
    Stopped,  ///< On request: there is no result, or of a sequence the files written so far.
};

/// Reads, renders and writes. Throws JobError, media::MediaError, runtime::Error and FrameFailure;
/// nothing incomplete is left under a final name.
RenderEnd runRender(const RenderPlan& plan, RenderEvents& events, const std::stop_token& stop = {});

/// The same with a reader of the plan's input that is open already. Opening may mean reading a
/// whole file, and standard input cannot be opened twice.
RenderEnd runRender(const RenderPlan& plan, std::unique_ptr<media::FrameReader> reader,
                    RenderEvents& events, const std::stop_token& stop = {});

/// Opens what takes the results, with the plan's options for writing.
using OpenResult = std::function<std::unique_ptr<media::FrameWriter>(const media::WriteOptions&)>;

/// The same with results that go elsewhere than into plan.output.
RenderEnd renderInto(const OpenResult& open, const RenderPlan& plan,
                     std::unique_ptr<media::FrameReader> reader, RenderEvents& events,
                     const std::stop_token& stop = {});

}  // namespace ruvex::jobs
