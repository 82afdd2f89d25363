// A processor that reads two images into the Map.

#pragma once

#include "imaging/imager.h"

namespace ruvex {

/// All three are VxTextures. `work` runs on all workers at once; the other steps on the caller.
template <class Map, class First = Map, class Second = Map>
class Combiner : public virtual Imager {
public:
    virtual void start(First*, Second*, Map*) {}
    virtual void work(First*, Second*, Map*) {}
    virtual void finish(First*, Second*, Map*) {}

    /// Combines `first` and `second` into the window of `onto`. A Map that can't be written is
    /// named on the standard error stream and left alone; the wording of its unusable case is
    /// shared with the generators.
    void process(First* first, Second* second, Map* onto);
};

template <class Map, class First, class Second>
void Combiner<Map, First, Second>::process(First* first, Second* second, Map* onto) {
    if (!checkMap(onto, {"Map passed into Combiner::process is NULL",
                         "Map passed into Generator::process is bogus"})) {
        return;
    }
    runOn(*onto, *this, first, second, onto);
}

}  // namespace ruvex
