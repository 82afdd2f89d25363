// Processors that fill a window of a target texture, the Map, in passes over all worker threads.

#pragma once

#include <cstdint>

#include "imaging/interruption.h"
#include "imaging/tex_indexer.h"

namespace ruvex {

/// Whatever can be stopped.
class VxInteruptable {
public:
    virtual ~VxInteruptable() = default;

    InterruptionRecord* interrupt = nullptr;  ///< borrowed; null cannot be interrupted
};

/// First and last-plus-one of a range of rows or columns, in image space.
struct Span {
    std::int32_t first;
    std::int32_t end;
};

/// The rule for windows, passes and row shares. A processor overrides `run`, which all workers
/// enter at once and which writes only the rows of its rowRange, and the steps around it, which
/// run on the calling thread. The window is kept between runs, clipped to the Map of the last.
class VxImgProc : public VxInteruptable {
public:
    virtual void pre() {}
    virtual void run() {}
    virtual void post() {}
    virtual void prePass() {}
    virtual void postPass() {}
    virtual void runPasses();

    /// Fills the window of `onto`, or the whole of it where no window was set. A null `onto` does
    /// nothing.
    virtual void process(VxTexIndexer* onto);

    /// Sets the window from inclusive image-space corners.
    void setWindow(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    /// The inclusive corners of the window.
    void getWindow(std::int32_t& left, std::int32_t& top, std::int32_t& right,
                   std::int32_t& bottom) const;
    void copyWindow(const VxImgProc& other);
    void setPasses(std::int32_t n) { passes = n; }

    /// The calling worker's rows. Empty or negative for surplus workers.
    Span rowRange() const;
    /// The window's columns, which are not split.
    Span columnRange() const { return {x0, x1}; }

    /// Holds the window to inclusive limits. A window outside them becomes a single row or column
    /// at their edge; with `keepWindow`, one that sticks out on an axis is replaced whole there.
    void clipWindow(std::int32_t xMin, std::int32_t yMin, std::int32_t xMax, std::int32_t yMax);
    void clipToTexture(const VxTexIndexer& texture);

    bool windowSet = false;
    std::int32_t x0 = 0, y0 = 0, x1 = 0, y1 = 0;  ///< window; x1, y1 are one past the end
    std::int32_t passes = 1;
    std::int32_t pass = 0;  ///< the pass now running
    bool useThreads = true;
    bool keepWindow = false;
    float scaleX = 1.0f;  ///< pixel aspect, by which horizontal pixel measures are divided
    float scaleY = 1.0f;  ///< its inverse, by which vertical ones are multiplied
    VxTexIndexer* map = nullptr;
    std::int32_t mapWidth = 0;
    std::int32_t mapHeight = 0;

private:
    void runPass();

    bool inThreadedPass_ = false;
};

/// A processor of one texture. Texture is a VxTexture.
template <class Texture>
class VxImgProc1 : public VxImgProc {
public:
    using VxImgProc::process;

    virtual void process(Texture& onto) { process(&onto); }
    virtual void process(Texture* onto);

    Texture* target = nullptr;  ///< set during a run
};

/// A processor that reads one texture and fills another, which may be the same.
template <class Source, class Target>
class VxImgProc2 : public VxImgProc {
public:
    using VxImgProc::process;

    virtual void process(Source& from, Target& onto) { process(&from, &onto); }
    virtual void process(Source* from, Target* onto);

    Target* target = nullptr;  ///< set during a run
    Source* source = nullptr;  ///< set during a run
};

/// Prints that a Map is unusable, in the wording of the generators.
void reportUnusableMap();

template <class Texture>
void VxImgProc1<Texture>::process(Texture* onto) {
    if (!onto) return;
    if (!onto->usable()) return reportUnusableMap();
    target = onto;
    process(static_cast<VxTexIndexer*>(onto));
    target = nullptr;
}

template <class Source, class Target>
void VxImgProc2<Source, Target>::process(Source* from, Target* onto) {
    if (!onto) return;
    if (!onto->usable()) return reportUnusableMap();
    target = onto;
    source = from;
    process(static_cast<VxTexIndexer*>(onto));
    target = nullptr;
    source = nullptr;
}

}  // namespace ruvex
