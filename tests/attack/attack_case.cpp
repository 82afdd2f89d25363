#include "tests/attack/attack_case.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstring>
#include <mutex>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include "looks/ruvex_control.h"
#include "looks/session_look.h"
#include "runtime/error.h"
#include "runtime/images.h"
#include "tests/attack/random_frame.h"
#include "tests/effect/render_fixture.h"

namespace ruvex::attack {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t kFrames = 3;
/// A case that takes longer is given up.
constexpr std::chrono::seconds kLongestCase{10};

struct Stopped {};
using Bytes = std::vector<std::byte>;
/// A picture, the words of a refusal, or nothing to compare.
using Outcome = std::variant<Bytes, std::string, Stopped>;

bool agree(const Outcome& a, const Outcome& b) {
    if (std::holds_alternative<Stopped>(a) || std::holds_alternative<Stopped>(b)) return true;
    if (a.index() != b.index()) return false;
    return a.index() == 0 ? std::get<Bytes>(a) == std::get<Bytes>(b)
                          : std::get<std::string>(a) == std::get<std::string>(b);
}

struct Clip : runtime::InputProvider {
    explicit Clip(const FrameKind& ofKind) : kind(ofKind) {}

    /// Other pixels for each 25th of a second, and nothing before the beginning.
    ComPtr<IDSImage> imageAt(double seconds) override {
        constexpr double kPicturesASecond = 25.0;
        const double number = seconds * kPicturesASecond;
        if (!(number >= 0.0 && number < 1e9)) return {};
        return randomImage(kind, static_cast<std::uint32_t>(number));
    }

    FrameKind kind;
};

/// Requests a stop unless it is ended before that.
class Watchdog {
public:
    explicit Watchdog(std::stop_source& source)
        : thread_([this, &source](const std::stop_token& ended) {
              std::unique_lock lock(mutex_);
              if (changed_.wait_for(lock, ended, kLongestCase, [] { return false; })) return;
              if (!ended.stop_requested()) source.request_stop();
          }) {}

private:
    std::mutex mutex_;
    std::condition_variable_any changed_;
    std::jthread thread_;  ///< Ends first.
};

class Case {
public:
    explicit Case(std::uint32_t seed) : random_(seed), kind_(randomKind(random_)) {
        look_ = randomLook(random_);
        for (FrameTask& task : tasks_) task = randomTask(random_, kind_);
    }

    Counts run() {
        const Watchdog watchdog(giveUp_);
        runtime::EffectSession session = makeSession(giveUp_.get_token());
        const auto start = Clock::now();
        for (std::size_t i = 0; i < kFrames; ++i)
            wanted_[i] = render(session, giveUp_.get_token(), i, counts_);
        const Seconds ofFrame = Seconds(Clock::now() - start) / static_cast<double>(kFrames);
        for (std::size_t i = kFrames; i-- > 0;)
            compare(i, render(session, giveUp_.get_token(), i, counts_), "again");
        renderAtOnce(session, ofFrame);
        counts_.cases = 1;
        counts_.slow = giveUp_.stop_requested() ? 1 : 0;
        return counts_;
    }

private:
    runtime::EffectSession makeSession(const std::stop_token& stop) const {
        runtime::EffectSession session(
            {.module = test::builtModule(),
             .project = kind_.project,
             .provider = kind_.provider ? std::make_shared<Clip>(kind_) : nullptr,
             .stop = stop,
             .family = kind_.family});
        looks::ruvexControl(session).setWorkerCount(kind_.workers);
        looks::applyChanges(session, look_);
        return session;
    }

    runtime::RenderRequest requestOf(const FrameTask& task) const {
        runtime::RenderRequest request;
        request.seconds = task.seconds;
        request.input = randomImage(kind_, task.seed);
        request.output = randomImage(kind_, task.seed + 1);
        request.region = task.region;
        request.fieldMode = task.fieldMode;
        if (task.mask) {
            request.pixelMask =
                runtime::makeProjectImage(kind_.project, kind_.width, kind_.height, MFIF_A_RAW_8);
        }
        return request;
    }

    /// `stop` is the session's.
    Outcome render(runtime::EffectSession& session, const std::stop_token& stop, std::size_t index,
                   Counts& counts) const {
        ++counts.frames;
        const runtime::RenderRequest request = requestOf(tasks_[index]);
        try {
            session.render(request);
        } catch (const runtime::Error& error) {
            ++counts.refused;
            return std::string(error.what());
        }
        const FrameOutcome outcome = looks::ruvexControl(session).frameOutcome();
        if (outcome == FrameOutcome::OutOfMemory) return "out of memory";
        if (session.interrupted() || outcome == FrameOutcome::Stopped) {
            if (!stop.stop_requested()) throw Difference("a frame was stopped and nobody asked");
            ++counts.stopped;
            return Stopped{};
        }
        auto& image = static_cast<CDSMemoryImage&>(*request.output.get());
        return Bytes(image.bytes(), image.bytes() + image.byteCount());
    }

    void compare(std::size_t index, const Outcome& outcome, const char* manner) const {
        if (!agree(outcome, wanted_[index])) {
            throw Difference("frame " + std::to_string(index) + " at " +
                             std::to_string(tasks_[index].seconds) + " s differs, rendered " +
                             manner);
        }
    }

    /// Two clones render the frames in turn, and a third session is stopped meanwhile.
    void renderAtOnce(const runtime::EffectSession& session, Seconds ofFrame) {
        std::array<std::vector<Outcome>, 2> byClones;
        std::array<Counts, 2> counts;
        std::vector<std::jthread> threads;
        for (std::size_t k = 0; k < byClones.size(); ++k) {
            threads.emplace_back([&, k, clone = session.clone()]() mutable {
                for (std::size_t i = 0; i < kFrames; ++i) {
                    byClones[k].push_back(renderOrFail(clone, inOrder(k, i), counts[k]));
                }
            });
        }
        const Outcome stopped = renderStopped(ofFrame);
        threads.clear();
        compare(0, stopped, "while it was to be stopped");
        for (std::size_t k = 0; k < byClones.size(); ++k) {
            counts[k].byClones = counts[k].frames;
            counts_ += counts[k];
            for (std::size_t i = 0; i < kFrames; ++i) {
                compare(inOrder(k, i), byClones[k][i], "by a clone among others");
            }
        }
    }

    /// An exception would end the thread, and the program: its words are an outcome that no picture
    /// agrees with.
    Outcome renderOrFail(runtime::EffectSession& session, std::size_t index, Counts& counts) const {
        try {
            return render(session, giveUp_.get_token(), index, counts);
        } catch (const Difference& difference) {
            return std::string(difference.what());
        }
    }

    /// The second clone goes backwards.
    static std::size_t inOrder(std::size_t clone, std::size_t i) {
        return clone == 0 ? i : kFrames - 1 - i;
    }

    Outcome renderStopped(Seconds ofFrame) {
        std::stop_source source;
        runtime::EffectSession session = makeSession(source.get_token());
        const auto pause = std::min<Seconds>(ofFrame * random_.real(0.0f, 1.5f), Seconds(1.0));
        Clock::time_point requested;
        std::jthread stopper([&] {
            std::this_thread::sleep_for(pause);
            requested = Clock::now();
            source.request_stop();
        });
        Outcome outcome = render(session, source.get_token(), 0, counts_);
        const auto ended = Clock::now();
        stopper.join();
        counts_.longestStop = std::max<Seconds>(counts_.longestStop, ended - requested);
        return outcome;
    }

    test::Random random_;
    FrameKind kind_;
    std::vector<looks::ParameterChange> look_;
    std::array<FrameTask, kFrames> tasks_;
    std::array<Outcome, kFrames> wanted_;
    std::stop_source giveUp_;
    Counts counts_;
};

}  // namespace

Counts& Counts::operator+=(const Counts& other) {
    cases += other.cases;
    frames += other.frames;
    byClones += other.byClones;
    stopped += other.stopped;
    refused += other.refused;
    slow += other.slow;
    longestStop = std::max(longestStop, other.longestStop);
    return *this;
}

Counts runCase(std::uint32_t seed) {
    return Case(seed).run();
}

}  // namespace ruvex::attack
