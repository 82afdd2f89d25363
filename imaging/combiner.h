// A processor that reads two images into the Map.

#pragma once

#include "imaging/imager.h"

namespace ruvex {

/// Map, First and Second are VxTextures. `work` runs on all workers at once; `start` and `finish`
/// run on the calling thread.
template <class Map, class First = Map, class Second = Map>
class Combiner : public virtual Imager {
public:
    virtual void start(First*, Second*, Map*) {}
    virtual void work(First*, Second*, Map*) {}
    virtual void finish(First*, Second*, Map*) {}

    /// Combines `first` and `second` into the window of `onto`. A null Map, or one without pixels,
    /// is reported on standard error, and nothing is done. The message for one without pixels says
    /// "Generator", as that of a generator does.
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
