#include "adapters/openfx/effect_pool.h"

#include <cstddef>
#include <memory>
#include <mutex>
#include <new>

namespace ruvex::openfx {
namespace {

struct SharedPool {
    std::mutex mutex;
    std::unique_ptr<adapters::PictureEffectPool> pool;
};

/// Never destroyed: a host that ends without unloading the plug-in has destroyed what effects need
/// by then.
SharedPool& sharedPool() {
    alignas(SharedPool) static std::byte storage[sizeof(SharedPool)];
    static SharedPool* const only = new (storage) SharedPool;
    return *only;
}

}  // namespace

adapters::PictureEffectPool& effectPool() {
    SharedPool& all = sharedPool();
    const std::lock_guard lock(all.mutex);
    if (!all.pool) all.pool = std::make_unique<adapters::PictureEffectPool>();
    return *all.pool;
}

void closeEffectPool() {
    SharedPool& all = sharedPool();
    const std::lock_guard lock(all.mutex);
    all.pool.reset();
}

}  // namespace ruvex::openfx
