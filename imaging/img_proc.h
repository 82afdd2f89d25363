// Processors that fill a window of a target texture, the Map, in passes over all worker threads.

#pragma once

#include <cstdint>

#include "imaging/interruption.h"
#include "imaging/tex_indexer.h"

namespace ruvex {

/// Base class of every processor that an interruption can stop.
class VxInteruptable {
public:
    virtual ~VxInteruptable() = default;

    InterruptionRecord* interrupt = nullptr;  ///< not owned; null: never interrupted
};

/// A range of rows or columns, first .. end - 1, in image space.
struct Span {
    std::int32_t first;
    std::int32_t end;
};

/// Base class that manages the window, the passes and the workers' shares of rows. A processor
/// overrides `run`, which all workers call at once and which writes only the rows of its rowRange,
/// and pre, prePass, postPass and post, which run on the calling thread. The window is kept from
/// run to run, clipped to the Map of the latest.
class VxImgProc : public VxInteruptable {
public:
    virtual void pre() {}
    virtual void run() {}
    virtual void post() {}
    virtual void prePass() {}
    virtual void postPass() {}
    virtual void runPasses();

    /// Fills the window of `onto`, or all of `onto` if no window was set. Does nothing if `onto` is
    /// null.
    virtual void process(VxTexIndexer* onto);

    /// Sets the window from inclusive image-space corners.
    void setWindow(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    /// Gives the window's corners, inclusive, in image space.
    void getWindow(std::int32_t& left, std::int32_t& top, std::int32_t& right,
                   std::int32_t& bottom) const;
    void copyWindow(const VxImgProc& other);
    void setPasses(std::int32_t n) { passes = n; }

    /// The calling worker's rows. If there are more workers than rows, some get a range with end <=
    /// first.
    Span rowRange() const;
    /// The window's columns; every worker gets all of them.
    Span columnRange() const { return {x0, x1}; }

    /// Clips the window to inclusive limits. A window entirely outside becomes the single row or
    /// column at the nearest limit. With `keepWindow`, a window that exceeds the limits on an axis
    /// is set to x0 = xMin, x1 = xMax there instead (y alike).
    void clipWindow(std::int32_t xMin, std::int32_t yMin, std::int32_t xMax, std::int32_t yMax);
    void clipToTexture(const VxTexIndexer& texture);

    bool windowSet = false;
    std::int32_t x0 = 0, y0 = 0, x1 = 0, y1 = 0;  ///< window; x1, y1 are one past the end
    std::int32_t passes = 1;
    std::int32_t pass = 0;  ///< the current pass, from 0
    bool useThreads = true;
    bool keepWindow = false;
    float scaleX = 1.0f;  ///< pixel aspect: horizontal sizes in pixels are divided by it
    float scaleY = 1.0f;  ///< 1 / pixel aspect: vertical sizes in pixels are multiplied by it
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

/// A processor that reads one texture and fills another, which may be the same one.
template <class Source, class Target>
class VxImgProc2 : public VxImgProc {
public:
    using VxImgProc::process;

    virtual void process(Source& from, Target& onto) { process(&from, &onto); }
    virtual void process(Source* from, Target* onto);

    Target* target = nullptr;  ///< set during a run
    Source* source = nullptr;  ///< set during a run
};

/// Prints on standard error that a Map has no pixels; the message is that of the generators.
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
