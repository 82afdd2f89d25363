#include "adapters/common/picture_effect.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <new>
#include <string>

#include "adapters/common/frame_clip.h"
#include "adapters/common/frame_picture.h"
#include "adapters/common/parameter_state.h"
#include "adapters/common/render_session.h"
#include "runtime/error.h"

namespace ruvex::adapters {
namespace {

/// The effect's sizes have 32 bits.
constexpr std::int64_t kMostBytes = std::numeric_limits<std::int32_t>::max();

const GUID& formatFor(const SourcePicture* source, const TargetPicture& target) {
    const bool deep = target.form.samples != SampleType::Bits8 ||
                      (source && source->form.samples != SampleType::Bits8);
    return deep ? MFIF_RGBA_S2_14 : MFIF_RGBA_RAW_32;
}

void checkFrame(const PixelRect& frame, const GUID& format) {
    checkPictureSize(frame.width(), frame.height());
    const std::int64_t pixels = std::int64_t{frame.width()} * frame.height();
    if (pixels > kMostBytes / DSBytesPerPixel(format)) {
        throw runtime::Error("a picture of " + std::to_string(frame.width()) + "x" +
                             std::to_string(frame.height()) + " pixels takes 2 GB or more");
    }
}

void checkTime(double seconds) {
    if (!std::isfinite(seconds)) throw runtime::Error("the time of the frame is not finite");
}

bool resultIsOpaque(ResultAlpha alpha, bool sourceIsOpaque, PixelForm target) {
    return target.isOpaque() || alpha == ResultAlpha::Opaque ||
           (alpha == ResultAlpha::Automatic && sourceIsOpaque);
}

/// Calls `work`; where there is no memory for it, throws runtime::OutOfMemory.
template <class Work>
auto withMemoryErrors(Work work) {
    const auto outOfMemory = [] {
        return runtime::OutOfMemory("there is not enough memory for the frame");
    };
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw outOfMemory();
    } catch (const runtime::StatusError& error) {
        if (error.status() == E_OUTOFMEMORY) throw outOfMemory();
        throw;
    }
}

}  // namespace

class PictureEffect::State {
public:
    void prepare(const FrameTask& task) {
        checkTime(task.seconds);
        session_.open(task.project);
        session_.setParameters(completeState(task.changes, {}));
    }

    void render(const FrameTask& task, const SourcePicture* source, const TargetPicture& target);

    FrameValues valuesOf(const FrameTask& task) {
        prepare(task);
        return session_.valuesAt(task.seconds);
    }

private:
    std::shared_ptr<FrameClip> clip_ = std::make_shared<FrameClip>();
    RenderSession session_{clip_};
};

void PictureEffect::State::render(const FrameTask& task, const SourcePicture* source,
                                  const TargetPicture& target) {
    const GUID& format = formatFor(source, target);
    checkFrame(task.frame, format);
    const FrameRows rows = rowsOf(task.frame, task.lines);
    const WrittenRows written = writtenRows(task.window, task.lines, target.bounds);
    prepare(task);
    const bool nothingToRender = rows.count == 0 || intersection(written.area, task.frame).empty();
    if (nothingToRender) return clearPicture(written, target);
    const auto atHand =
        clip_->begin({task.project, task.seconds, rows, format, source, task.others});
    const auto output = session_.render(task.seconds, atHand.image);
    clip_->rethrowFailure();
    writePicture(*output, rows, written, resultIsOpaque(task.alpha, atHand.opaque, target.form),
                 target);
}

PictureEffect::PictureEffect() : state_(std::make_unique<State>()) {}
PictureEffect::~PictureEffect() = default;

void PictureEffect::render(const FrameTask& task, const SourcePicture* source,
                           const TargetPicture& target) {
    withMemoryErrors([&] { state_->render(task, source, target); });
}

FrameValues PictureEffect::valuesOf(const FrameTask& task) {
    return withMemoryErrors([&] { return state_->valuesOf(task); });
}

}  // namespace ruvex::adapters
