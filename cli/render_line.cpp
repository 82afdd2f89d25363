#include "cli/render_line.h"

#include <thread>
#include <utility>
#include <vector>

#include "cli/interruption.h"
#include "media/media_error.h"
#include "runtime/error.h"

namespace ruvex::cli {
namespace {

/// Beside the frames that are rendered there is one being read and one being written, and one that
/// waits on each side, so that none of the three has to wait for the others' unevenness.
constexpr int kSlotsBesideJobs = 4;

/// Ends all work with the frames when the caller is done with them, for whatever reason.
class Closing {
public:
    explicit Closing(FrameRing& ring) : ring_(ring) {}
    ~Closing() { ring_.close(); }
    Closing(const Closing&) = delete;
    Closing& operator=(const Closing&) = delete;

private:
    FrameRing& ring_;
};

/// `what` with the command that repeats the frame, where that is known.
std::string withRepeat(const RenderJob& job, std::int64_t number, const std::string& what) {
    return job.repeat ? what + " To repeat it: " + job.repeat(number) : what;
}

[[noreturn]] void rethrow(const RenderJob& job, const FrameSlot& slot) {
    try {
        std::rethrow_exception(slot.failure);
    } catch (const runtime::Error& error) {
        throw runtime::Error(withRepeat(job, slot.number, std::string(error.what()) + "."));
    } catch (const media::MediaError& error) {
        throw media::MediaError(withRepeat(job, slot.number, error.what()));
    }
}

}  // namespace

RenderLine::RenderLine(const RenderJob& job, const RenderPlan& plan,
                       std::shared_ptr<SharedClip> clip)
    : job_(job), plan_(plan), clip_(std::move(clip)) {
    renderers_.emplace_back(job, plan, clip_, job.parameters);
    while (renderers_.size() < static_cast<std::size_t>(job.jobs)) {
        renderers_.push_back(renderers_.front().clone());
    }
}

bool RenderLine::run(const FramesToMake& frames, const Write& write) {
    FrameRing ring(job_.jobs + kSlotsBesideJobs);
    std::vector<std::jthread> threads;
    const Closing closing(ring);
    threads.emplace_back([&] { read(frames, ring); });
    for (FrameRenderer& renderer : renderers_) {
        threads.emplace_back([&] { render(renderer, ring); });
    }
    while (FrameSlot* slot = ring.take(Step::Write)) {
        if (slot->failure) {
            rethrow(job_, *slot);
        }
        write(slot->number, slot->result);
        ring.pass(*slot);
    }
    return !stopWished();
}

void RenderLine::read(const FramesToMake& frames, FrameRing& ring) {
    media::Frame frame;
    for (std::int64_t k = frames.range.first; k <= frames.range.last; ++k) {
        if (frames.made.contains(k)) {
            continue;
        }
        std::exception_ptr failure;
        try {
            if (!readNext(frames, k, frame)) {
                break;
            }
        } catch (...) {
            failure = std::current_exception();
        }
        FrameSlot* slot = ring.take(Step::Read);
        if (!slot) {
            return;
        }
        slot->number = k;
        slot->failure = failure;
        std::swap(slot->source, frame);
        ring.pass(*slot);
        if (failure) {
            break;
        }
    }
    ring.end();
}

bool RenderLine::readNext(const FramesToMake& frames, std::int64_t number, media::Frame& frame) {
    const bool there = clip_->read(number, frame);
    if (!there && !frames.endless) {
        throw media::MediaError("The input has ended before frame " + std::to_string(number) + ".");
    }
    return there;
}

void RenderLine::render(FrameRenderer& renderer, FrameRing& ring) {
    media::Frame rendered;
    while (FrameSlot* slot = ring.take(Step::Render)) {
        if (stopWished()) {
            return ring.close();
        }
        try {
            if (!slot->failure && !makeResult(renderer, *slot, rendered)) {
                return ring.close();
            }
        } catch (...) {
            slot->failure = std::current_exception();
        }
        ring.pass(*slot);
    }
}

bool RenderLine::makeResult(FrameRenderer& renderer, FrameSlot& slot, media::Frame& rendered) {
    media::makeRoom(slot.result, plan_.output.size, plan_.depth);
    if (!job_.comparison) {
        return renderer.render(slot.number, slot.source, slot.result);
    }
    media::makeRoom(rendered, plan_.size, plan_.depth);
    const bool done = renderer.render(slot.number, slot.source, rendered);
    if (done) {
        compareFrames(*job_.comparison, slot.source, rendered, slot.result);
    }
    return done;
}

}  // namespace ruvex::cli
