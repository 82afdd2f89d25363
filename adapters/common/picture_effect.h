// The effect behind pictures of any form, for hosts that render parts of frames and fields.

#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "adapters/common/host_picture.h"
#include "looks/parameter_change.h"
#include "parameters/ruvex_interface.h"
#include "runtime/project.h"

namespace ruvex::adapters {

/// Other frames of the clip, for a tape that does not play at normal speed.
struct OtherFrames {
    virtual ~OtherFrames() = default;

    /// Calls `use` once with the picture of the frame at that time, of any form, and answers true;
    /// or answers false without a call, and the picture at hand is used instead. Not called for the
    /// frame that is rendered. Called on the thread that renders, for the same time more than once
    /// too. What this throws ends the render.
    virtual bool pictureAt(double seconds,
                           const std::function<void(const SourcePicture&)>& use) = 0;
};

/// Which lines of a frame are rendered. The lower field has the lines whose y is even. The lines of
/// a field are a picture of their own, which fills the project frame.
enum class RenderedLines { All, LowerField, UpperField };

/// Which alpha a result has.
enum class ResultAlpha {
    Automatic,  ///< Opaque if the form of the source is, or all its pixels in the rendered lines.
    Effect,     ///< The effect's, which makes parts of a picture transparent.
    Opaque,     ///< White; colours are kept.
};

/// All that a frame depends on but its pictures.
struct FrameTask {
    runtime::Project project{};  ///< Lengths refer to this frame, which the picture fills.
    double seconds = 0.0;
    std::vector<looks::ParameterChange> changes{};  ///< Of the defaults.
    PixelRect frame{};   ///< The whole picture; what the source lacks of it is transparent black.
    PixelRect window{};  ///< The part that is written, as far as the target has it. May be empty.
    RenderedLines lines = RenderedLines::All;  ///< Others of the window are not written.
    ResultAlpha alpha = ResultAlpha::Automatic;
    OtherFrames* others = nullptr;  ///< Without it the picture at hand is used.
};

/// One effect of the module that belongs to this plug-in. It is cheap to make: the module is loaded
/// for the first frame. One thread uses it at a time; any number of them render at once.
class PictureEffect {
public:
    PictureEffect();
    ~PictureEffect();
    PictureEffect(const PictureEffect&) = delete;
    PictureEffect& operator=(const PictureEffect&) = delete;

    /// Renders the whole picture and writes the window of it; pixels of the window that lie outside
    /// the frame become 0 in all components. The result depends on the arguments alone. If source
    /// and target both have 8 bits, the effect works with 8 bits, otherwise with S2.14: 16 bits
    /// from black to white, and floats from -2 to just below 2; NaN becomes 0. Without a source
    /// (null) the clip is transparent black. Source and target may be the same memory.
    ///
    /// A picture of alpha alone is rendered as grey, and the result is the effect's alpha.
    ///
    /// Throws runtime::Error for a frame without pixels, with a side above
    /// looks::kLongestProjectSide or with 2 GB; for a time that is not finite; and where the effect
    /// fails. Throws runtime::OutOfMemory, and what `others` throws. The target is then unchanged.
    void render(const FrameTask& task, const SourcePicture* source, const TargetPicture& target);

    /// The values of the frame of a task; its pictures and areas are ignored. Throws
    /// runtime::Error.
    FrameValues valuesOf(const FrameTask& task);

private:
    class State;
    std::unique_ptr<State> state_;
};

/// Effects that no thread uses at present, kept for the next frame, since hosts make an instance
/// for each frame. At most kMostKept are kept, since each keeps the memory of its pictures. Any
/// thread.
class PictureEffectPool {
public:
    static constexpr std::size_t kMostKept = 4;

    PictureEffectPool();
    ~PictureEffectPool();
    PictureEffectPool(const PictureEffectPool&) = delete;
    PictureEffectPool& operator=(const PictureEffectPool&) = delete;

    /// Calls `use` with an effect that no other thread uses meanwhile. Throws what `use` throws;
    /// the effect is then destroyed.
    void withEffect(const std::function<void(PictureEffect&)>& use);
    /// Destroys the effects that are kept; those in use are destroyed when their call ends.
    void clear();

private:
    class Kept;
    std::unique_ptr<Kept> kept_;
};

}  // namespace ruvex::adapters
