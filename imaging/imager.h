// The second family of processors: generators, samplers and combiners. A worker computes its own
// share of rows, and rows may be those of one field.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/threads.h"

namespace ruvex {

/// The rows and columns that one worker is to fill, in image space.
struct RowLoop {
    std::int32_t first, end, step;  ///< rows first, first + step, ... below end
    std::int32_t x0, x1;            ///< columns x0 to x1 - 1
};

/// The first row of a field at row y, and from one row to the next. Field mode 0 is all rows; 1 is
/// the even row at or after y; 2 is the odd row of the pair that holds y. A share that begins on a
/// row of the other parity is thereby put on the right one.
std::int32_t fieldStart(std::int32_t fieldMode, std::int32_t y);
inline std::int32_t fieldStep(std::int32_t fieldMode) {
    return fieldMode == 0 ? 1 : 2;
}

/// Calls row(y) for each row of a worker's share until the render is stopped.
template <class Row>
void forEachRow(const RowLoop& loop, InterruptionRecord* interrupt, Row row) {
    if (loop.x0 >= loop.x1) return;
    for (std::int32_t y = loop.first; y < loop.end; y += loop.step) {
        row(y);
        if (interruptCheck(interrupt)) break;
    }
}

/// What generators, samplers and combiners share: the window and its resolution against the Map.
class Imager : public VxInteruptable {
public:
    /// Sets the window from inclusive image-space corners.
    void setWindow(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom);
    void copyWindow(const Imager& other);
    void setPasses(std::int32_t n) { passes = n; }

    /// 0 all rows, 1 even rows, 2 odd rows.
    void setFieldMode(std::int32_t mode) { fieldMode = mode; }
    std::int32_t fieldStart(std::int32_t y) const { return ruvex::fieldStart(fieldMode, y); }
    std::int32_t fieldStep() const { return ruvex::fieldStep(fieldMode); }

    /// The calling worker's rows and columns of the present pass.
    RowLoop rowLoop() const;

    bool clipPending = false;
    bool singleThread = false;
    bool windowed = false;                        ///< the window is not the whole Map from (0, 0)
    std::int32_t x0 = 0, y0 = 0, x1 = 0, y1 = 0;  ///< window; x1, y1 are one past the end
    std::int32_t passes = 1;
    std::int32_t pass = 0;  ///< the pass now running
    float scaleX = 1.0f;    ///< pixel aspect
    float scaleY = 1.0f;    ///< its inverse
    std::int32_t fieldMode = 0;
    VxTexIndexer* map = nullptr;  ///< set during a run
    std::int32_t mapWidth = 0;
    std::int32_t mapHeight = 0;

protected:
    /// The run that the three kinds share: settles the window on `onto`, then calls `self`'s
    /// start, its startPass (if it has one) and work for each pass, and finish, all with
    /// `textures`. Work runs on all workers, unless `singleThread`.
    template <class Self, class... Textures>
    void runOn(VxTexIndexer& onto, Self& self, Textures*... textures);

private:
    void begin(VxTexIndexer& onto);
    void resolveWindow();
    void applyPendingClip();
};

/// The standard-error lines for a Map that can't be written.
struct MapMessages {
    const char* null;
    const char* bogus;
};

/// Prints one line to the standard error stream.
void printLine(const char* line);

/// Checks a Map, printing the line that fits; false means do nothing.
template <class Texture>
bool checkMap(const Texture* onto, const MapMessages& messages) {
    if (!onto) {
        printLine(messages.null);
        return false;
    }
    if (!onto->usable()) {
        printLine(messages.bogus);
        return false;
    }
    return true;
}

template <class Self, class... Textures>
void Imager::runOn(VxTexIndexer& onto, Self& self, Textures*... textures) {
    begin(onto);
    self.start(textures...);
    for (pass = 0; pass < passes; ++pass) {
        if (interruptCheck(interrupt)) break;
        if constexpr (requires { self.startPass(textures...); }) self.startPass(textures...);
        // Here and not by each worker: a window set by `start` or `startPass` is clipped once.
        applyPendingClip();
        if (singleThread) {
            self.work(textures...);
        } else {
            runOnAllThreads([](Self* worker, Textures*... t) { worker->work(t...); }, &self,
                            textures...);
        }
    }
    self.finish(textures...);
    map = nullptr;
}

}  // namespace ruvex
