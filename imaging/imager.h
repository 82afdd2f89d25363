// Base class of generators, samplers and combiners: processors that divide the rows of a window,
// or of one of its fields, among the workers.

#pragma once

#include <cstdint>

#include "imaging/img_proc.h"
#include "imaging/threads.h"

namespace ruvex {

/// The rows and columns that one worker fills, in image space.
struct RowLoop {
    std::int32_t first, end, step;  ///< rows first, first + step, ... below end
    std::int32_t x0, x1;            ///< columns x0 to x1 - 1
};

/// The first row of a field in a share of rows that begins at y. Field mode 0 (all rows): y. 1
/// (even rows): the even row at or after y. 2 (odd rows): y / 2 * 2 + 1, which for y >= 0 is the
/// odd row at or after y. fieldStep is the distance to the field's next row.
std::int32_t fieldStart(std::int32_t fieldMode, std::int32_t y);
inline std::int32_t fieldStep(std::int32_t fieldMode) {
    return fieldMode == 0 ? 1 : 2;
}

/// Calls row(y) for each row of a worker's share; stops when the render is interrupted.
template <class Row>
void forEachRow(const RowLoop& loop, InterruptionRecord* interrupt, Row row) {
    if (loop.x0 >= loop.x1) return;
    for (std::int32_t y = loop.first; y < loop.end; y += loop.step) {
        row(y);
        if (interruptCheck(interrupt)) break;
    }
}

/// The window of generators, samplers and combiners, and the run that clips it to the Map and calls
/// the processor's steps.
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

    /// The calling worker's rows and columns of the current pass.
    RowLoop rowLoop() const;

    bool clipPending = false;
    bool singleThread = false;
    bool windowed = false;                        ///< the window is not the whole Map from (0, 0)
    std::int32_t x0 = 0, y0 = 0, x1 = 0, y1 = 0;  ///< window; x1, y1 are one past the end
    std::int32_t passes = 1;
    std::int32_t pass = 0;  ///< the current pass, from 0
    float scaleX = 1.0f;    ///< pixel aspect
    float scaleY = 1.0f;    ///< 1 / pixel aspect
    std::int32_t fieldMode = 0;
    VxTexIndexer* map = nullptr;  ///< set during a run
    std::int32_t mapWidth = 0;
    std::int32_t mapHeight = 0;

protected:
    /// Runs the processor `self`: clips the window to `onto`, calls start, then for each pass
    /// startPass (if `self` has it) and work, then finish, all with the arguments `textures`. work
    /// runs on all workers, or on the calling thread alone if `singleThread` is set.
    template <class Self, class... Textures>
    void runOn(VxTexIndexer& onto, Self& self, Textures*... textures);

private:
    void begin(VxTexIndexer& onto);
    void resolveWindow();
    void applyPendingClip();
};

/// The error messages for a Map that can't be written.
struct MapMessages {
    const char* null;
    const char* bogus;
};

/// Prints one line to standard error.
void printLine(const char* line);

/// Whether `onto` is a Map that can be written. Otherwise prints one of `messages`.
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
        // Once, before the workers start: `start` or `startPass` may have set another window.
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
