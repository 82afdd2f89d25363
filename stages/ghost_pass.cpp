#include "stages/ghost_pass.h"

#include <algorithm>
#include <memory>
#include <new>

#include "imaging/buffer.h"
#include "imaging/gradient_noise.h"
#include "imaging/random.h"
#include "imaging/wrap.h"
#include "stages/source_runs.h"
#include "stages/stage_pixel.h"

namespace ruvex {
namespace {

struct Ghost {
    std::int32_t offset;  // columns to the right that it reads
    float weight;         // negative for a negative image
};

using Ghosts = std::unique_ptr<Ghost[]>;

// Null when memory ran out, or for more ghosts than a buffer may hold.
Ghosts makeGhosts(const SignalParameters& signal, std::int32_t count) {
    constexpr std::int64_t kMost = kMaxBufferBytes / static_cast<std::int64_t>(sizeof(Ghost));
    if (count > kMost) return nullptr;
    Ghosts ghosts(new (std::nothrow) Ghost[static_cast<std::size_t>(count)]);
    if (!ghosts) return nullptr;
    const float raw = (signal.breakup - signal.ghostThreshold) / (1.0f - signal.ghostThreshold);
    const float strength = std::clamp(raw, 0.0f, 1.0f);
    auto seed = static_cast<std::uint32_t>(signal.seed);
    for (std::int32_t i = 0; i < count; ++i) {
        const float place = uniform(seed) * 100.0f + signal.ghostPhase;
        ghosts[i].offset = truncateToInt(signal.noiseTable->fractalNoise(place, 4) *
                                         signal.ghostDistance * strength);
    }
    for (std::int32_t i = 0; i < count; ++i) {
        ghosts[i].weight = (uniform(seed) * 2.0f - 1.0f) * signal.ghostStrength;
    }
    return ghosts;
}

// Scratch of one worker's row: the picture's components as floats, and what comes of them.
struct RowSums {
    explicit RowSums(std::int32_t columns)
        : count(static_cast<std::size_t>(columns) * 4),
          base(new (std::nothrow) float[count]),
          sum(new (std::nothrow) float[count]) {}

    std::size_t count;
    std::unique_ptr<float[]> base;
    std::unique_ptr<float[]> sum;
};

template <class P>
void addGhost(const P* from, std::int32_t step, std::int32_t length, float weight,
              const float* base, float* sum) {
    for (std::int32_t i = 0; i < length; ++i) {
        const P& ghost = from[std::ptrdiff_t{i} * step];
        for (int k = 0; k < 4; ++k) {
            const std::ptrdiff_t at = std::ptrdiff_t{i} * 4 + k;
            sum[at] += (base[at] - static_cast<float>(ghost.c[k])) * weight;
        }
    }
}

template <class P>
void ghostRow(const VxTexture<P>& source, P* to, std::int32_t y, Span columns, const Ghost* ghosts,
              std::int32_t ghostCount, RowSums& row) {
    const std::int32_t count = columns.end - columns.first;
    overRuns(source, columns.first, y, count,
             [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                 float* base = row.base.get() + std::ptrdiff_t{done} * 4;
                 for (std::int32_t i = 0; i < length; ++i) {
                     for (int k = 0; k < 4; ++k) {
                         *base++ = static_cast<float>(from[std::ptrdiff_t{i} * step].c[k]);
                     }
                 }
             });
    std::copy_n(row.base.get(), row.count, row.sum.get());
    for (std::int32_t g = 0; g < ghostCount; ++g) {
        overRuns(source, wrapAdd(columns.first, ghosts[g].offset), y, count,
                 [&](const P* from, std::int32_t step, std::int32_t done, std::int32_t length) {
                     addGhost(from, step, length, ghosts[g].weight,
                              row.base.get() + std::ptrdiff_t{done} * 4,
                              row.sum.get() + std::ptrdiff_t{done} * 4);
                 });
    }
    const float* sum = row.sum.get();
    for (std::int32_t i = 0; i < count; ++i) {
        for (int k = 0; k < 4; ++k) to[i].c[k] = StagePixel<P>::hold(*sum++);
    }
}

}  // namespace

template <class P>
void runGhostPass(const SignalParameters& signal, const VxTexture<P>& source, VxTexture<P>& target,
                  Span rows, Span columns, InterruptionRecord* interrupt) {
    if (rows.first >= rows.end || columns.first >= columns.end) return;
    const std::int32_t count = std::max(signal.numGhosts, 0);
    const Ghosts ghosts = makeGhosts(signal, count);
    RowSums row(columns.end - columns.first);
    if (!ghosts || !row.base || !row.sum) return raiseOutOfMemory(interrupt);
    for (std::int32_t y = rows.first; y < rows.end; ++y) {
        if (interruptCheck(interrupt)) return;
        ghostRow(source, target.writeAt(columns.first, y), y, columns, ghosts.get(), count, row);
    }
}

template void runGhostPass(const SignalParameters&, const VxTexture<Rgba8>&, VxTexture<Rgba8>&,
                           Span, Span, InterruptionRecord*);
template void runGhostPass(const SignalParameters&, const VxTexture<RgbaS214>&,
                           VxTexture<RgbaS214>&, Span, Span, InterruptionRecord*);

}  // namespace ruvex
