#include <cstdint>
#include <mutex>
#include <utility>

#include "adapters/common/picture_effect.h"

namespace ruvex::adapters {
namespace {

using EffectOwner = std::unique_ptr<PictureEffect>;

}  // namespace

class PictureEffectPool::Kept {
public:
    /// An effect, and how often the pool had been cleared when it was taken.
    struct Taken {
        EffectOwner effect;
        std::uint64_t clears = 0;
    };

    Taken take() {
        const std::lock_guard lock(mutex_);
        if (effects_.empty()) return {nullptr, clears_};
        EffectOwner effect = std::move(effects_.back());
        effects_.pop_back();
        return {std::move(effect), clears_};
    }

    /// Keeps the effect, if there is room and the pool has not been cleared since.
    void giveBack(Taken& taken) {
        const std::lock_guard lock(mutex_);
        if (taken.clears == clears_ && effects_.size() < kMostKept) {
            effects_.push_back(std::move(taken.effect));
        }
    }

    /// The effects are destroyed by the caller, without the lock.
    std::vector<EffectOwner> takeAll() {
        const std::lock_guard lock(mutex_);
        ++clears_;
        return std::exchange(effects_, {});
    }

private:
    std::mutex mutex_;
    std::vector<EffectOwner> effects_;
    std::uint64_t clears_ = 0;
};

PictureEffectPool::PictureEffectPool() : kept_(std::make_unique<Kept>()) {}
PictureEffectPool::~PictureEffectPool() = default;

void PictureEffectPool::withEffect(const std::function<void(PictureEffect&)>& use) {
    Kept::Taken taken = kept_->take();
    if (!taken.effect) taken.effect = std::make_unique<PictureEffect>();
    use(*taken.effect);
    kept_->giveBack(taken);
}

void PictureEffectPool::clear() {
    kept_->takeAll();
}

}  // namespace ruvex::adapters
