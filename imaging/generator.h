// A processor that fills the Map without reading an image.

#pragma once

#include "imaging/imager.h"

namespace ruvex {

/// Map is a VxTexture. `work` runs on all workers at once; `start` and `finish` run on the calling
/// thread.
template <class Map>
class Generator : public Imager {
public:
    virtual void start(Map*) {}
    virtual void work(Map*) {}
    virtual void finish(Map*) {}

    /// Fills the window of `onto`. A null Map, or one without pixels, is reported on standard
    /// error, and nothing is done.
    void process(Map* onto);
};

template <class Map>
void Generator<Map>::process(Map* onto) {
    if (!checkMap(onto, {"Map passed into Generator::process is NULL",
                         "Map passed into Generator::process is bogus"})) {
        return;
    }
    runOn(*onto, *this, onto);
}

}  // namespace ruvex
