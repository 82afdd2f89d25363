// The television: one processor from the source picture to the degraded one.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/texture.h"
#include "imaging/window_stack.h"
#include "stages/signal_parameters.h"
#include "stages/tone_tables.h"

namespace ruvex {

/// Made for one frame: set `signal`, window, aspect and `interrupt`, then process(source, output).
/// It runs five passes (signal, ghosts, creeping lines, transport, white dot), and between them
/// what runs once: copies, snow, shash. Running out of memory stops the frame.
template <class P>
class RuvexSampler : public VxImgProc2<VxTexture<P>, VxTexture<P>>, public VxIPWindowStack {
public:
    using Texture = VxTexture<P>;

    RuvexSampler() : VxIPWindowStack(this) {}

    void pre() override;
    void run() override;
    void post() override;
    void postPass() override;

    SignalParameters signal;

    Texture paddedSource;   ///< the source with its margins; to the end of pass 0
    Texture signalTexture;  ///< output of pass 0; to the end of pass 1
    Texture workTexture;    ///< output of pass 1, worked on in place; buffer of the shash picture
    Texture dotTexture;     ///< the finished picture that the white dot shrinks

private:
    bool pictureShows() const { return shashMix_ != 1.0f; }
    bool haunted() const;
    bool whiteDotOn() const { return signal.whiteDot > 0.0f; }
    Texture& picture() { return whiteDotOn() ? dotTexture : *this->target; }
    bool stopped() const { return interruptCheck(this->interrupt); }

    bool padSource();
    void paintBorder();
    bool makeSignalTexture();
    bool allocate(Texture& texture, const VxTexIndexer& layout);
    bool allocateWork(Texture& texture);
    template <class Processor>
    void giveWindow(Processor& processor);
    void copyInWindow(Texture& from, Texture& to);
    void drawLines();
    void afterSignal();
    void afterGhosts();
    void afterLines();
    void snow();
    void afterTransport();
    std::int32_t shashTypeOfFrame() const;

    ToneTables<P> tables_;
    float shashMix_ = 0.0f;
    std::int32_t marginX_ = 0;
    std::int32_t marginY_ = 0;
};

extern template class RuvexSampler<Rgba8>;
extern template class RuvexSampler<RgbaS214>;

}  // namespace ruvex
