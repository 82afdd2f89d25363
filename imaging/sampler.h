// A processor that reads one image into the Map.

#pragma once

#include "imaging/imager.h"

namespace ruvex {

/// Map and Source are VxTextures and may be one object where a sampler says so. `work` runs on all
/// workers at once; the other steps on the caller.
template <class Map, class Source = Map>
class Sampler : public virtual Imager {
public:
    virtual void start(Source*, Map*) {}
    virtual void work(Source*, Map*) {}
    virtual void finish(Source*, Map*) {}
    /// Called before each pass.
    virtual void startPass(Source*, Map*) {}

    /// Reads `from` into the window of `onto`. A Map that can't be written is named on the standard
    /// error stream and left alone; the wording of its null case is shared with the generators.
    void process(Source* from, Map* onto);
};

template <class Map, class Source>
void Sampler<Map, Source>::process(Source* from, Map* onto) {
    if (!checkMap(onto, {"Map passed into Generator::process is NULL",
                         "Map passed into Sampler::process is bogus"})) {
        return;
    }
    runOn(*onto, *this, from, onto);
}

}  // namespace ruvex
