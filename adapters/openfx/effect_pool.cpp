#include "adapters/openfx/effect_pool.h"

#include <memory>
#include <mutex>

#include "adapters/openfx/never_destroyed.h"

namespace ruvex::openfx {
namespace {

struct SharedPool {
    std::mutex mutex;
    std::unique_ptr<adapters::PictureEffectPool> pool;
};

SharedPool& sharedPool() {
    return neverDestroyed<SharedPool>();
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
