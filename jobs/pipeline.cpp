#include "jobs/pipeline.h"

#include <new>
#include <thread>
#include <utility>
#include <vector>

#include "jobs/frame_memory.h"
#include "media/media_error.h"
#include "runtime/error.h"

namespace ruvex::jobs {
namespace {

/// Closes the ring when the caller leaves, by an exception too, so that the threads end.
class Closing {
public:
    explicit Closing(FrameRing& ring) : ring_(ring) {}
    ~Closing() { ring_.close(); }
    Closing(const Closing&) = delete;
    Closing& operator=(const Closing&) = delete;

private:
    FrameRing& ring_;
};

[[noreturn]] void rethrow(const FrameSlot& slot) {
    try {
        std::rethrow_exception(slot.failure);
    } catch (const runtime::Error& error) {
        throw FrameFailure(slot.number, std::string(error.what()) + ".");
    } catch (const media::MediaError& error) {
        throw FrameFailure(slot.number, error.what());
    } catch (const std::bad_alloc&) {
        throw FrameFailure(slot.number, outOfMemorySentence(slot.number) + ".");
    }
}

}  // namespace

Pipeline::Pipeline(const RenderPlan& plan, std::shared_ptr<SharedClip> clip, std::stop_token stop)
    : clip_(std::move(clip)), stop_(std::move(stop)), ring_(plan.framesAtOnce) {
    renderers_.emplace_back(plan, clip_, stop_);
    while (renderers_.size() < static_cast<std::size_t>(plan.framesAtOnce)) {
        renderers_.push_back(renderers_.front().clone());
    }
}

bool Pipeline::run(const FramesToMake& frames, const Write& write) {
    std::vector<std::jthread> threads;
    const Closing closing(ring_);
    threads.emplace_back([&] { read(frames); });
    for (FrameRenderer& renderer : renderers_) {
        threads.emplace_back([&] { render(renderer); });
    }
    while (FrameSlot* slot = ring_.take(Step::Write)) {
        if (slot->failure) {
            rethrow(*slot);
        }
        write(slot->number, *slot->result);
        ring_.pass(*slot);
    }
    return ring_.ended();
}

media::HeldMemory Pipeline::held() const {
    media::HeldMemory held = ring_.held();
    held.add(clip_->held());
    for (const FrameRenderer& renderer : renderers_) held.add(renderer.held());
    return held;
}

void Pipeline::read(const FramesToMake& frames) {
    for (std::int64_t k = frames.range.first; k <= frames.range.last; ++k) {
        if (frames.made.contains(k)) continue;
        FrameSlot* slot = ring_.take(Step::Read);
        if (!slot) return;
        slot->number = k;
        slot->failure = nullptr;
        try {
            if (!readNext(frames, k, *slot->source)) return ring_.end(slot);
        } catch (...) {
            slot->failure = std::current_exception();
        }
        const bool failed = slot->failure != nullptr;
        ring_.pass(*slot);
        if (failed) break;
    }
    ring_.end();
}

bool Pipeline::readNext(const FramesToMake& frames, std::int64_t number, media::Frame& frame) {
    if (frames.endless) return clip_->read(number, frame);
    clip_->readExisting(number, frame);
    return true;
}

void Pipeline::render(FrameRenderer& renderer) {
    while (FrameSlot* slot = ring_.take(Step::Render)) {
        try {
            if (!slot->failure && !renderer.render(slot->number, *slot->source, *slot->result)) {
                return ring_.close();
            }
        } catch (...) {
            slot->failure = std::current_exception();
        }
        ring_.pass(*slot);
    }
}

}  // namespace ruvex::jobs
