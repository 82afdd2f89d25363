#include "stages/ruvex_sampler.h"

#include <algorithm>
#include <cmath>

#include "imaging/copy_samplers.h"
#include "imaging/frame_generator.h"
#include "imaging/mix_combiner.h"
#include "imaging/random.h"
#include "imaging/threads.h"
#include "imaging/wrap.h"
#include "stages/creeping_lines.h"
#include "stages/edge_adder.h"
#include "stages/ghost_pass.h"
#include "stages/rgb_noise_proc.h"
#include "stages/shash_proc.h"
#include "stages/signal_pass.h"
#include "stages/stage_pixel.h"
#include "stages/transport_pass.h"
#include "stages/white_dot.h"

namespace ruvex {
namespace {

enum Pass : std::int32_t { kSignal, kGhosts, kLines, kTransport, kWhiteDot, kPassCount };

constexpr std::int32_t kRandomShash = 5;

// A margin in whole pixels. A picture without a sensible size has none, or one that no memory
// holds.
std::int32_t heldMargin(float margin) {
    constexpr std::int32_t kLargest = 1 << 28;
    return std::clamp(truncateToInt(margin), 0, kLargest);
}

}  // namespace

template <class P>
void RuvexSampler<P>::pre() {
    const float width = signal.width - static_cast<float>(signal.originX);
    const float height = signal.height - static_cast<float>(signal.originY);
    marginX_ = heldMargin(width * this->scaleY / 7.0f);
    marginY_ = heldMargin(height / 10.0f);
    shashMix_ = stageAmount(signal.breakup, signal.shashAmountMax, signal.shashThreshold);
    this->setPasses(whiteDotOn() ? kPassCount : kPassCount - 1);
    if (!padSource() || stopped()) return;
    paintBorder();
    if (stopped() || !makeSignalTexture()) return;

    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    pushAndSet(wrapSubtract(left, marginX_), wrapSubtract(top, marginY_), wrapAdd(right, marginX_),
               wrapAdd(bottom, marginY_));
    this->clipToTexture(signalTexture);
    if (!tables_.build(signal)) raiseOutOfMemory(this->interrupt);
}

// Wherever nothing is written, nothing but zeroes may be read.
template <class P>
bool RuvexSampler<P>::allocate(Texture& texture, const VxTexIndexer& layout) {
    texture.allocateLayout(layout, Contents::Zero);
    if (texture.data) return true;
    raiseOutOfMemory(this->interrupt);
    return false;
}

// Stages work in place: each pixel is read where it is written, wherever the host places the
// output.
template <class P>
bool RuvexSampler<P>::allocateWork(Texture& texture) {
    if (!allocate(texture, *this->target)) return false;
    texture.setFill(this->target->fill);
    texture.setOrigin(texture.x.offset, texture.y.offset);
    return true;
}

template <class P>
bool RuvexSampler<P>::padSource() {
    const VxTexIndexer layout(*this->source, {marginX_, marginY_, marginX_, marginY_});
    paddedSource.setFill(this->source->fill);
    if (!allocate(paddedSource, layout)) return false;
    // Wrap in both directions makes the picture roll with its border as one closed loop. The
    // vertical offset comes in by way of the origin, at reading.
    paddedSource.setOrigin(-marginX_, wrapSubtract(signal.verticalOffset, marginY_));
    paddedSource.x.offset = -marginX_;
    paddedSource.y.offset = -marginY_;
    paddedSource.setEdgeMethods(kEdgeWrap, kEdgeWrap);

    SimpleCopySampler<P> copier;
    copier.interrupt = this->interrupt;
    copier.setWindow(0, 0, this->source->x.size - 1, this->source->y.size - 1);
    copier.process(this->source, &paddedSource);
    return true;
}

template <class P>
void RuvexSampler<P>::paintBorder() {
    EdgeAdder<P> edge;
    edge.interrupt = this->interrupt;
    edge.left = -marginX_;
    edge.right = truncateToInt(static_cast<float>(marginX_) + signal.width);
    edge.top = -marginY_;
    edge.bottom = truncateToInt(static_cast<float>(marginY_) + signal.height);
    edge.borderAlpha = signal.borderAlpha;
    edge.seed = static_cast<std::uint32_t>(signal.seed);
    edge.sourceFrame = signal.sourceFrame;
    edge.noiseTable = signal.noiseTable;
    edge.process(paddedSource);
}

template <class P>
bool RuvexSampler<P>::makeSignalTexture() {
    const VxTexIndexer layout(*this->source, {marginX_, marginY_, marginX_, marginY_});
    if (!allocate(signalTexture, layout)) return false;
    signalTexture.setEdgeMethods(kEdgeWrap, kEdgeWrap);
    signalTexture.setOrigin(-marginX_, -marginY_);
    signalTexture.x.offset = -marginX_;
    signalTexture.y.offset = -marginY_;
    return true;
}

template <class P>
bool RuvexSampler<P>::haunted() const {
    return signal.breakup > signal.ghostThreshold && signal.numGhosts != 0;
}

template <class P>
void RuvexSampler<P>::run() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    InterruptionRecord* const record = this->interrupt;
    if (this->pass != kWhiteDot && !pictureShows()) return;
    switch (this->pass) {
        case kSignal:
            return runSignalPass(signal, tables_, paddedSource, signalTexture, rows, columns,
                                 record);
        case kGhosts:
            if (haunted()) runGhostPass(signal, signalTexture, workTexture, rows, columns, record);
            return;
        case kLines:
            return drawLines();
        case kTransport:
            return runTransportPass(signal, this->scaleY, workTexture, picture(), rows, columns,
                                    record);
        case kWhiteDot:
            return shrinkToDot(signal, dotTexture, *this->target, rows, columns, record);
        default:
            return;
    }
}

// A line may reach a row beyond a share: one worker draws all shares, one after the other.
template <class P>
void RuvexSampler<P>::drawLines() {
    if (workerIndex() != 0) return;
    const std::int32_t workers = workerCount();
    for (std::int32_t worker = 0; worker < workers; ++worker) {
        const RowShare share = shareOfRows(this->y1 - this->y0, workers, worker);
        drawCreepingLines(signal, workTexture, Span{this->y0 + share.first, this->y0 + share.end});
    }
}

template <class P>
void RuvexSampler<P>::postPass() {
    switch (this->pass) {
        case kSignal:
            return afterSignal();
        case kGhosts:
            return afterGhosts();
        case kLines:
            return afterLines();
        case kTransport:
            return afterTransport();
        case kWhiteDot:
            return glowAroundDot(signal, this->scaleY, *this->target, this->interrupt);
        default:
            return;
    }
}

template <class P>
template <class Processor>
void RuvexSampler<P>::giveWindow(Processor& processor) {
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    processor.setWindow(left, top, right, bottom);
    processor.interrupt = this->interrupt;
}

template <class P>
void RuvexSampler<P>::copyInWindow(Texture& from, Texture& to) {
    SimpleCopySampler<P> copier;
    giveWindow(copier);
    copier.process(&from, &to);
}

template <class P>
void RuvexSampler<P>::afterSignal() {
    pop();
    paddedSource.clear();
    if (!allocateWork(workTexture)) return;
    workTexture.setEdgeMethods(kEdgeMirror, kEdgeMirror);
    stopped();
}

template <class P>
void RuvexSampler<P>::afterGhosts() {
    if (!haunted()) copyInWindow(signalTexture, workTexture);
    signalTexture.clear();
}

template <class P>
void RuvexSampler<P>::afterLines() {
    if (signal.breakup > signal.snowThreshold && signal.snowMax != 0.0f) snow();
    if (stopped()) return;
    if (!whiteDotOn()) return copyInWindow(workTexture, *this->target);
    if (!allocateWork(dotTexture)) return;
    copyInWindow(workTexture, dotTexture);
    ColouredFrameGenerator<P> black;
    black.zero = true;
    giveWindow(black);
    black.process(this->target);
}

template <class P>
void RuvexSampler<P>::snow() {
    constexpr std::int32_t kBlackAndWhite = 1;
    VxRGBNoiseProc<P> noise;
    const float amount = stageAmount(signal.breakup, signal.snowMax, signal.snowThreshold);
    for (int k = 0; k < 4; ++k) {
        noise.amountMax[k] = amount;
        noise.amountMin[k] = -amount;
        noise.softX[k] = signal.snowSoftness * signal.scale * this->scaleY;
    }
    if (signal.tvType == kBlackAndWhite) noise.mode = VxRGBNoiseProc<P>::Mode::Grey;
    // A held frame holds its snow.
    noise.seed = seedFromFloat(std::fabs(static_cast<float>(signal.sourceFrame) * 12541.0f)) + 1u;
    noise.sparseness = signal.snowSparseness;
    noise.alpha = true;
    giveWindow(noise);
    noise.process(workTexture, workTexture);
}

template <class P>
std::int32_t RuvexSampler<P>::shashTypeOfFrame() const {
    if (signal.shashType != kRandomShash) return signal.shashType;
    if (signal.shashPeriod == 0) return 0;
    auto s = static_cast<std::uint32_t>(signal.shashFramesOn / signal.shashPeriod) +
             static_cast<std::uint32_t>(signal.seed);
    return truncateToInt(uniform(s) * 5.0f);
}

template <class P>
void RuvexSampler<P>::afterTransport() {
    if (shashMix_ > 0.0f) {
        VxShashProc<P> shash;
        shash.noiseTable = signal.noiseTable;
        shash.seed = static_cast<std::uint32_t>(signal.seed);
        shash.outputFrame = signal.outputFrame;
        shash.scaleA = signal.scale;
        shash.scaleX = this->scaleX;
        shash.scaleY = this->scaleY;
        shash.type = shashTypeOfFrame();
        giveWindow(shash);
        shash.process(workTexture);
        if (stopped()) return;

        Texture shown;
        shown.refer(picture());
        shown.setOrigin(shown.x.offset, shown.y.offset);
        MixCombiner<P> mix;
        mix.weightFirst = 1.0f - shashMix_;
        mix.weightSecond = shashMix_;
        giveWindow(mix);
        mix.process(&shown, &workTexture, &picture());
    }
    workTexture.clear();
}

template <class P>
void RuvexSampler<P>::post() {
    tables_.clear();
}

template class RuvexSampler<Rgba8>;
template class RuvexSampler<RgbaS214>;

}  // namespace ruvex
