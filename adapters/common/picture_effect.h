// The effect behind pictures of any form, for hosts that render parts of frames and fields.

#pragma once

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

    /// Calls `use` once with the picture at that time and answers true; or answers false, and the
    /// picture at hand is used instead. On the thread that renders.
    virtual bool pictureAt(double seconds,
                           const std::function<void(const SourcePicture&)>& use) = 0;
};

/// Which lines of a frame are rendered. The lower field has the lines whose y is even.
enum class RenderedLines { All, LowerField, UpperField };

/// Which alpha a result has.
enum class ResultAlpha {
    Automatic,  ///< Opaque if the source is: if its form has no alpha, or every pixel is opaque.
    Effect,     ///< The effect's, which makes parts of a picture transparent.
    Opaque,
};

/// All that a frame depends on but its pictures.
struct FrameTask {
    runtime::Project project{};  ///< Lengths refer to this frame, which the picture fills.
    double seconds = 0.0;
    std::vector<looks::ParameterChange> changes{};  ///< Of the defaults.
    PixelRect frame{};   ///< The whole picture; what the source lacks of it is transparent black.
    PixelRect window{};  ///< The part that is written, as far as the target has it.
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
    /// the frame become 0. The result depends on the arguments alone. 8-bit pictures are rendered
    /// with 8 bits, others with S2.14: 16 bits from black to white, and floats from -2 to just
    /// below 2; NaN becomes 0. Without a source (null) the clip is transparent black. Throws
    /// runtime::Error, and then the target may be partly written.
    void render(const FrameTask& task, const SourcePicture* source, const TargetPicture& target);

    /// The values of the frame of a task; its pictures and areas are ignored. Throws
    /// runtime::Error.
    FrameValues valuesOf(const FrameTask& task);

private:
    class State;
    std::unique_ptr<State> state_;
};

/// Effects that no thread uses at present, kept for the next frame, since hosts make an instance
/// for each frame. Any thread.
class PictureEffectPool {
public:
    PictureEffectPool();
    ~PictureEffectPool();
    PictureEffectPool(const PictureEffectPool&) = delete;
    PictureEffectPool& operator=(const PictureEffectPool&) = delete;

    /// Calls `use` with an effect that no other thread uses meanwhile. Throws what `use` throws.
    void withEffect(const std::function<void(PictureEffect&)>& use);
    /// Destroys the effects that are kept.
    void clear();

private:
    class Kept;
    std::unique_ptr<Kept> kept_;
};

}  // namespace ruvex::adapters
