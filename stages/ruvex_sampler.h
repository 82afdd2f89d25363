// The television: one processor from the source picture to the degraded one.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"
#include "stages/padded_area.h"
#include "stages/signal_parameters.h"
#include "stages/tone_tables.h"

namespace ruvex {

/// Made for one frame: set `signal`, window, aspect and `interrupt`, then process(source, output).
/// It runs five passes (signal, ghosts, creeping lines, transport, white dot), and after each of
/// them what runs once: copies, snow, shash. The table of passes stands in the source. Running out
/// of memory stops the frame by way of `interrupt`, which must be set for that to be seen; what a
/// stopped frame has written is no picture.
///
/// Whatever a frame does not need is not made: no margins without displacement, and no work picture
/// where the stages can work in the finished one.
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

    /// The source with its margins, to the end of pass 0. Empty where nothing is displaced.
    Texture paddedSource;
    /// The picture of passes 0 to 2 and buffer of the shash picture. Often a view of the output or
    /// of `dotTexture`.
    Texture workTexture;
    Texture dotTexture;  ///< the finished picture that the white dot shrinks

private:
    /// One pass of the table. Its number is its place there.
    struct Pass {
        bool sharesRows;                     ///< each worker runs it over a share of the rows
        bool (RuvexSampler::*acts)() const;  ///< null for one that never does
        void (RuvexSampler::*run)();         ///< over one worker's rows, if it acts
        void (RuvexSampler::*after)();       ///< once when all rows are done, in any case; or null
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

    ToneTables<P> tables_;
    PaddedArea area_;
    float shashMix_ = 0.0f;
    bool useThreads_ = true;  ///< as it was set before the run
};

extern template class RuvexSampler<Rgba8>;
extern template class RuvexSampler<RgbaS214>;

}  // namespace ruvex
