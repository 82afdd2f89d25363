#include "adapters/openfx/effect_pool.h"

namespace ruvex::openfx {

adapters::PictureEffectPool& effectPool() {
    static adapters::PictureEffectPool pool;
    return pool;
}

}  // namespace ruvex::openfx
