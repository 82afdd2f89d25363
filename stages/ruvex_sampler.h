// The television: one processor from the source picture to the degraded one.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"
#include "stages/frame_memory.h"
#include "stages/padded_area.h"
#include "stages/signal_parameters.h"

namespace ruvex {

/// Used for one frame: set `signal`, window, aspect and `interrupt`, then call
/// process(source, output). It runs five passes (signal, ghosts, creeping lines, transport, white
/// dot); some have a step after them that runs once (copies, snow, shash). The table of passes is
/// in the source. If memory runs out, the frame is stopped through `interrupt`, which must be set;
/// the output of a stopped frame is incomplete.
///
/// Pictures that a frame does not need are not allocated: no margins without displacement, and no
/// work picture if the stages can work in the output.
template <class P>
class RuvexSampler : public VxImgProc2<VxTexture<P>, VxTexture<P>>, public VxIPWindowStack {
public:
    using Texture = VxTexture<P>;

    RuvexSampler() : VxIPWindowStack(this) {}

    void pre() override;
    void prePass() override;
    void run() override;
    void post() override;
    void postPass() override;

    SignalParameters signal;

    /// Kept from frame to frame; not owned. Null: what this object has.
    FrameMemory<P>* memory = nullptr;

    /// The source with its margins, until the end of pass 0. Empty without displacement.
    Texture paddedSource;
    /// The picture of passes 0 to 2, and the buffer of the shash. Often a view of the output or of
    /// `dotTexture`.
    Texture workTexture;
    Texture dotTexture;  ///< the finished picture that the white dot shrinks

private:
    /// One pass. Its number is its index in the table.
    struct Pass {
        bool sharesRows;                     ///< the rows are divided among the workers
        bool (RuvexSampler::*acts)() const;  ///< whether it does anything; null: never
        void (RuvexSampler::*run)();         ///< processes one worker's rows, if it acts
        void (RuvexSampler::*after)();       ///< called once after all rows, always; or null
        bool active(const RuvexSampler& sampler) const { return acts && (sampler.*acts)(); }
    };
    static const Pass kPasses[];
    const Pass& currentPass() const { return kPasses[this->pass]; }

    bool pictureShows() const { return shashMix_ != 1.0f; }
    bool whiteDotOn() const { return signal.whiteDot > 0.0f; }
    bool transportShows() const;
    bool displaced() const;
    Texture& picture() { return whiteDotOn() ? dotTexture : *this->target; }
    bool stopped() const { return interruptCheck(this->interrupt); }

    void measureArea();
    bool needsPadding() const;
    bool pad();
    bool windowIsWhole() const;
    bool worksInPicture() const;
    bool makeWork();
    bool makeLike(Texture& texture, Contents contents);
    void clearInWindow(Texture& texture);
    template <class Processor>
    void giveWindow(Processor& processor);
    void copyInWindow(Texture& from, Texture& to);

    void runSignal();
    void afterSignal() { paddedSource.clear(); }
    void runLines();
    void afterLines();
    void snow();
    void runTransport();
    void afterTransport();
    void drawShash();
    void runWhiteDot();
    void afterWhiteDot();
    ShashType shashTypeOfFrame() const;

    FrameMemory<P>& kept() { return memory ? *memory : ownMemory_; }

    FrameMemory<P> ownMemory_;
    const ToneTables<P>* tables_ = nullptr;  // of this frame, if the picture shows
    PaddedArea area_;
    float shashMix_ = 0.0f;
    bool useThreads_ = true;  ///< the caller's setting of useThreads
};

extern template class RuvexSampler<Rgba8>;
extern template class RuvexSampler<RgbaS214>;

}  // namespace ruvex
