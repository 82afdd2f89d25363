// A processor that reads one image into the Map.

#pragma once

#include "imaging/imager.h"

namespace ruvex {

/// Map and Source are VxTextures; some samplers allow them to be the same object. `work` runs on
/// all workers at once; the other steps run on the calling thread.
template <class Map, class Source = Map>
class Sampler : public virtual Imager {
public:
    virtual void start(Source*, Map*) {}
    virtual void work(Source*, Map*) {}
    virtual void finish(Source*, Map*) {}
    /// Called before each pass.
    virtual void startPass(Source*, Map*) {}

    /// Fills the window of `onto` from `from`. A null Map, or one without pixels, is reported on
    /// standard error, and nothing is done. The message for null says "Generator", as that of a
    /// generator does.
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
