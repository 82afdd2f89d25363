#include "stages/ruvex_sampler.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <iterator>
#include <type_traits>
#include <utility>

#include "imaging/copy_samplers.h"
#include "imaging/frame_generator.h"
#include "imaging/maths/random.h"
#include "imaging/maths/wrap.h"
#include "imaging/mix_combiner.h"
#include "imaging/threads.h"
#include "stages/creeping_lines.h"
#include "stages/ghosts.h"
#include "stages/padded_source.h"
#include "stages/rgb_noise_proc.h"
#include "stages/shash_proc.h"
#include "stages/signal_rows.h"
#include "stages/threshold.h"
#include "stages/transport_pass.h"
#include "stages/white_dot.h"
#include "stages/wide_rows.h"

namespace ruvex {
namespace {

// Whether two textures may share memory.
template <class P>
bool overlap(const VxTexture<P>& a, const VxTexture<P>& b) {
    if (!a.data || !b.data) return false;
    const auto extent = [](const VxTexture<P>& texture) {
        const std::byte* first = texture.data;
        const std::byte* last = first + std::ptrdiff_t{texture.stride} * (texture.y.size - 1);
        return std::pair(
            std::min(first, last),
            std::max(first, last) + sizeof(P) * static_cast<std::size_t>(texture.x.size));
    };
    const auto [aFirst, aEnd] = extent(a);
    const auto [bFirst, bEnd] = extent(b);
    return std::less<>{}(aFirst, bEnd) && std::less<>{}(bFirst, aEnd);
}

}  // namespace

// The passes in the order in which they run. The ghosts' pass does nothing, since the signal pass
// adds them to each row while it is in the cache; it stays because passes are numbered.
template <class P>
const typename RuvexSampler<P>::Pass RuvexSampler<P>::kPasses[] = {
    // Signal
    {.sharesRows = true,
     .acts = &RuvexSampler::pictureShows,
     .run = &RuvexSampler::runSignal,
     .after = &RuvexSampler::afterSignal},
    // Ghosts
    {.sharesRows = false, .acts = nullptr, .run = nullptr, .after = nullptr},
    // Creeping lines
    {.sharesRows = false,
     .acts = &RuvexSampler::pictureShows,
     .run = &RuvexSampler::runLines,
     .after = &RuvexSampler::afterLines},
    // Transport
    {.sharesRows = true,
     .acts = &RuvexSampler::transportShows,
     .run = &RuvexSampler::runTransport,
     .after = &RuvexSampler::afterTransport},
    // White dot. The last pass, because it is left out if there is no white dot.
    {.sharesRows = true,
     .acts = &RuvexSampler::whiteDotOn,
     .run = &RuvexSampler::runWhiteDot,
     .after = &RuvexSampler::afterWhiteDot},
};

template <class P>
void RuvexSampler<P>::pre() {
    useThreads_ = this->useThreads;
    paddedSource.clear();
    workTexture.clear();
    shashMix_ = stageAmount(signal.breakup, signal.shashAmountMax, signal.shashThreshold);
    constexpr auto kPassCount = static_cast<std::int32_t>(std::size(kPasses));
    this->setPasses(whiteDotOn() ? kPassCount : kPassCount - 1);
    measureArea();
    if (!makeWork() || stopped() || !pictureShows()) return;
    if (needsPadding() && !pad()) return;
    if (stopped()) return;
    tables_ = kept().tones.tables(signal, useThreads_);
    if (!tables_) raiseOutOfMemory(this->interrupt);
}

// The part of the padded picture that the window needs.
template <class P>
void RuvexSampler<P>::measureArea() {
    area_ = paddedArea(signal, *this->source, this->scaleY);
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    pushAndSet(wrapSubtract(left, area_.marginX), wrapSubtract(top, area_.marginY),
               wrapAdd(right, area_.marginX), wrapAdd(bottom, area_.marginY));
    this->clipToTexture(paddedLayout(*this->source, area_));
    area_.rows = {this->y0, this->y1};
    area_.columns = {this->x0, this->x1};
    pop();
}

template <class P>
bool RuvexSampler<P>::displaced() const {
    return edgeAmount(signal) != 0.0f || signal.verticalOffset != 0 || gunsApart(signal) ||
           hasGhosts(signal);
}

// A picture without displacement is read directly from the source, unless the work picture shares
// its memory. The border begins at signal.height, which may be inside the source.
template <class P>
bool RuvexSampler<P>::needsPadding() const {
    const std::int32_t bottom = truncateToInt(static_cast<float>(area_.marginY) + signal.height);
    const std::int32_t border = wrapSubtract(bottom, area_.marginY);
    const bool inside = this->x0 >= 0 && this->y0 >= 0 && this->x1 <= this->source->x.size &&
                        this->y1 <= std::min(this->source->y.size, border);
    return displaced() || !inside || overlap(*this->source, workTexture);
}

template <class P>
bool RuvexSampler<P>::pad() {
    const Span rows{this->y0, this->y1};
    const bool inside = area_.makes(rows, {this->x0, this->x1});
    return padSource(signal, area_, rowsRead(signal, area_, inside ? rows : area_.rows),
                     *this->source, paddedSource, kept().paddedSource, *this);
}

template <class P>
bool RuvexSampler<P>::transportShows() const {
    return transportActs(signal) && pictureShows();
}

template <class P>
bool RuvexSampler<P>::windowIsWhole() const {
    const TexAxis& x = this->target->x;
    const TexAxis& y = this->target->y;
    return this->x0 == x.offset && this->x1 == wrapAdd(x.offset, x.size) && this->y0 == y.offset &&
           this->y1 == wrapAdd(y.offset, y.size);
}

// Whether the stages may work in the output (or dotTexture). They need a separate work picture if
// the window is only a part of the frame, since stages may write outside the window; and if the
// transport pass reads it or shash is mixed with it.
template <class P>
bool RuvexSampler<P>::worksInPicture() const {
    return windowIsWhole() && !transportShows() && (!(shashMix_ > 0.0f) || !pictureShows());
}

// Allocates a texture like the output. Its origin is set to its offset: stages work in place, so
// each pixel must be read where it is written, whatever the offset of the host's output.
template <class P>
bool RuvexSampler<P>::makeLike(Texture& texture, Contents contents) {
    texture.allocateLayout(*this->target, contents);
    if (!texture.data) {
        raiseOutOfMemory(this->interrupt);
        return false;
    }
    texture.setFill(this->target->fill);
    texture.setOrigin(texture.x.offset, texture.y.offset);
    return true;
}

template <class P>
bool RuvexSampler<P>::makeWork() {
    // Pixels that are read without being written must be zero.
    const Contents contents =
        windowIsWhole() && pictureShows() ? Contents::Undefined : Contents::Zero;
    if (whiteDotOn() && !makeLike(dotTexture, contents)) return false;
    if (worksInPicture()) {
        workTexture.refer(picture());
        workTexture.setOrigin(workTexture.x.offset, workTexture.y.offset);
        if (!pictureShows()) clearInWindow(workTexture);
    } else if (!makeLike(workTexture, contents)) {
        return false;
    }
    workTexture.setEdgeMethods(kEdgeMirror, kEdgeMirror);
    return true;
}

// Starts workers only for a pass that runs and shares its rows.
template <class P>
void RuvexSampler<P>::prePass() {
    const Pass& now = currentPass();
    this->useThreads = useThreads_ && now.sharesRows && now.active(*this);
}

template <class P>
void RuvexSampler<P>::run() {
    const Pass& now = currentPass();
    if (now.active(*this)) (this->*now.run)();
}

template <class P>
void RuvexSampler<P>::postPass() {
    const Pass& now = currentPass();
    if (now.after) (this->*now.after)();
}

template <class P>
void RuvexSampler<P>::runSignal() {
    const Span rows = this->rowRange();
    const Span columns = this->columnRange();
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    const Texture& from = paddedSource.data ? paddedSource : *this->source;
    const auto makeAll = [&](auto& maker) {
        if (!maker.usable()) return raiseOutOfMemory(this->interrupt);
        for (std::int32_t y = rows.first; y < rows.end; ++y) {
            if (stopped()) return;
            maker.make(y, columns, workTexture.writeAt(columns.first, y));
        }
    };
    const bool narrow = !hasGhosts(signal) && area_.makes({this->y0, this->y1}, columns);
    SignalRows<P> signalRows(signal, *tables_, from,
                             narrow ? columns.end - columns.first : area_.width);
    if (narrow) return makeAll(signalRows);
    if (!signalRows.usable()) return raiseOutOfMemory(this->interrupt);
    WideRows<P> wideRows(signal, area_, signalRows);
    makeAll(wideRows);
}

// A line may have a dot one row outside a share: one thread draws all shares, one after the other.
template <class P>
void RuvexSampler<P>::runLines() {
    const std::int32_t workers = useThreads_ ? workerCount() : 1;
    for (std::int32_t worker = 0; worker < workers; ++worker) {
        const RowShare share = shareOfRows(this->y1 - this->y0, workers, worker);
        drawCreepingLines(signal, workTexture, Span{this->y0 + share.first, this->y0 + share.end},
                          this->interrupt);
    }
}

template <class P>
void RuvexSampler<P>::runTransport() {
    runTransportPass(signal, this->scaleY, workTexture, picture(), this->rowRange(),
                     this->columnRange(), this->interrupt);
}

template <class P>
void RuvexSampler<P>::runWhiteDot() {
    shrinkToDot(signal, dotTexture, *this->target, this->rowRange(), this->columnRange(),
                this->interrupt);
}

template <class P>
void RuvexSampler<P>::afterWhiteDot() {
    glowAroundDot(signal, this->scaleY, *this->target, this->interrupt);
}

template <class P>
template <class Processor>
void RuvexSampler<P>::giveWindow(Processor& processor) {
    std::int32_t left, top, right, bottom;
    this->getWindow(left, top, right, bottom);
    processor.setWindow(left, top, right, bottom);
    processor.interrupt = this->interrupt;
    if constexpr (std::is_base_of_v<VxImgProc, Processor>) processor.useThreads = useThreads_;
}

template <class P>
void RuvexSampler<P>::copyInWindow(Texture& from, Texture& to) {
    SimpleCopySampler<P> copier;
    giveWindow(copier);
    copier.process(&from, &to);
}

template <class P>
void RuvexSampler<P>::clearInWindow(Texture& texture) {
    ColouredFrameGenerator<P> black;
    black.zero = true;
    giveWindow(black);
    black.process(&texture);
}

template <class P>
void RuvexSampler<P>::afterLines() {
    if (aboveThreshold(signal.breakup, signal.snowThreshold) && signal.snowMax != 0.0f) snow();
    if (stopped()) return;
    if (!worksInPicture()) copyInWindow(workTexture, picture());
    if (whiteDotOn()) clearInWindow(*this->target);
}

template <class P>
void RuvexSampler<P>::snow() {
    VxRGBNoiseProc<P> noise;
    const float amount = stageAmount(signal.breakup, signal.snowMax, signal.snowThreshold);
    for (int k = 0; k < 4; ++k) {
        noise.amountMax[k] = amount;
        noise.amountMin[k] = -amount;
        noise.softX[k] = signal.snowSoftness * signal.scale * this->scaleY;
    }
    if (signal.tvType == TvType::BlackAndWhite) noise.mode = VxRGBNoiseProc<P>::Mode::Grey;
    // The seed follows the source frame, so that the snow of a paused frame does not change.
    constexpr float kSeedStep = 12541.0f;  // distance between the seeds of two frames
    noise.seed = seedFromFloat(std::fabs(static_cast<float>(signal.sourceFrame) * kSeedStep)) + 1u;
    noise.sparseness = signal.snowSparseness;
    noise.alpha = true;
    giveWindow(noise);
    noise.process(workTexture, workTexture);
}

template <class P>
ShashType RuvexSampler<P>::shashTypeOfFrame() const {
    constexpr float kPatterns = 5.0f;
    if (signal.shashType != ShashType::Random) return signal.shashType;
    if (signal.shashPeriod == 0) return ShashType::Grain;
    auto s = static_cast<std::uint32_t>(signal.shashFramesOn / signal.shashPeriod) +
             static_cast<std::uint32_t>(signal.seed);
    return ShashType{truncateToInt(uniform(s) * kPatterns)};
}

template <class P>
void RuvexSampler<P>::drawShash() {
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
}

template <class P>
void RuvexSampler<P>::afterTransport() {
    if (shashMix_ > 0.0f) {
        drawShash();
        if (stopped()) return;
        if (!worksInPicture()) {
            Texture shown;
            shown.refer(picture());
            shown.setOrigin(shown.x.offset, shown.y.offset);
            MixCombiner<P> mix;
            mix.weightFirst = 1.0f - shashMix_;
            mix.weightSecond = shashMix_;
            giveWindow(mix);
            mix.process(&shown, &workTexture, &picture());
        }
    }
    workTexture.clear();
}

template <class P>
void RuvexSampler<P>::post() {
    this->useThreads = useThreads_;
    tables_ = nullptr;
}

template class RuvexSampler<Rgba8>;
template class RuvexSampler<RgbaS214>;

}  // namespace ruvex
