// A processor that fills the Map from nothing.

#pragma once

#include "imaging/imager.h"

namespace ruvex {

/// Map is a VxTexture. `work` runs on all workers at once; `start` and `finish` on the caller.
template <class Map>
class Generator : public Imager {
public:
    virtual void start(Map*) {}
    virtual void work(Map*) {}
    virtual void finish(Map*) {}

    /// Fills the window of `onto`. A Map that can't be written is named on the standard error
    /// stream and left alone.
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
