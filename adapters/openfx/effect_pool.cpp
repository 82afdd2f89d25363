#include "adapters/openfx/effect_pool.h"

#include <cstddef>
#include <new>

namespace ruvex::openfx {

adapters::PictureEffectPool& effectPool() {
    // Never destroyed: a host that ends without unloading the plug-in has destroyed what effects
    // need by then. Unloading clears it.
    using Pool = adapters::PictureEffectPool;
    alignas(Pool) static std::byte storage[sizeof(Pool)];
    static Pool* const only = new (storage) Pool;
    return *only;
}

}  // namespace ruvex::openfx
