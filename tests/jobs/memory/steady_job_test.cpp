// What a job allocates and copies for each frame, once it has got going: no frame's memory, and at
// most one copy of a frame. The module and the codecs have memory of their own, which is told
// apart.

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "jobs/run_render.h"
#include "looks/presets.h"
#include "media/streams/stream_reader.h"
#include "parameters/presets.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"
#include "tests/support/watched_memory.h"

namespace ruvex::jobs {
namespace {

using media::Depth;
using media::Frame;
using test::ByOwner;

constexpr media::FrameSize kSize{320, 180};
constexpr int kFrames = 30;
/// By then each memory that serves again has been allocated: pictures in the ring and in pools, of
/// which an encoder that looks ahead holds some.
constexpr int kWarm = 15;
constexpr int kCounted = kFrames - kWarm;

/// A kind of clip with its frames, and the file that its render makes.
struct Kind {
    const char* input;
    Depth depth;
    int bits;
    const char* output;
    bool piped = false;  ///< Read as a stream, which cannot be opened again.
};

std::ostream& operator<<(std::ostream& out, const Kind& kind) {
    return out << kind.input << " -> " << kind.output << ", " << kind.bits << " bits"
               << (kind.piped ? ", piped" : "");
}

/// Counts from the frame that is written as number kWarm to the last one.
class Counting final : public RenderEvents {
public:
    void memoryUsed(const media::HeldMemory& memory) override {
        held = memory;
        used = test::bytesInUse() - usedBefore;
    }
    void frameWritten() override {
        ++written_;
        if (written_ == kWarm) {
            test::learnOwners();
            allocatedBefore_ = test::allocatedBytesByOwner();
            copiedBefore_ = test::copiedBytesByOwner();
        }
        if (written_ == kFrames) {
            allocated = test::allocatedBytesByOwner() - allocatedBefore_;
            copied = test::copiedBytesByOwner() - copiedBefore_;
        }
    }

    ByOwner allocated;
    ByOwner copied;
    media::HeldMemory held;
    std::int64_t usedBefore = test::bytesInUse();
    std::int64_t used = 0;  ///< Bytes that the whole process came to use during the render.
    int written_ = 0;

private:
    ByOwner allocatedBefore_;
    ByOwner copiedBefore_;
};

struct SteadyJob : testing::TestWithParam<Kind> {
    SteadyJob() {
        std::vector<Frame> frames;
        for (int k = 0; k < kFrames; ++k) {
            frames.push_back(
                media::noiseFrame(kSize, GetParam().depth, static_cast<unsigned>(k) + 1, true));
        }
        media::WriteOptions options;
        options.size = kSize;
        options.depth = GetParam().depth;
        options.bits = GetParam().bits;
        media::writeAll(input(), options, frames);
    }

    std::filesystem::path input() const { return folder.file(GetParam().input); }

    RenderJob job() const {
        RenderJob job;
        job.input = GetParam().piped ? std::filesystem::path("-") : input();
        job.output = folder.file(std::string("out-") + GetParam().output);
        job.workers = 1;  // Otherwise each frame starts threads, which takes memory.
        // An encoder that looks ahead further would give nothing before the last frame.
        if (std::string(GetParam().output).ends_with(".mp4")) job.encoderSpeed = "ultrafast";
        job.parameters = looks::presetChanges(*findPreset("Bad Colour TV"));
        return job;
    }

    /// Renders the clip, and tells what each frame took after the first ones.
    void run(Counting& counting) const {
        const RenderJob job = this->job();
        const int file = open(input().c_str(), O_RDONLY | O_CLOEXEC);
        std::unique_ptr<media::FrameReader> reader;
        if (GetParam().piped) {
            reader = std::make_unique<media::StreamReader>(file, "the clip", readingOf(job));
        } else {
            reader = media::openReader(job.input, readingOf(job));
        }
        std::vector<Note> notes;
        const RenderPlan plan = planRender(job, reader->info(), notes);
        EXPECT_EQ(runRender(plan, std::move(reader), counting), RenderEnd::Finished);
        close(file);
        EXPECT_EQ(counting.written_, kFrames);
    }

    std::uint64_t frameBytes() const {
        return static_cast<std::uint64_t>(kSize.width) * kSize.height *
               media::bytesPerPixel(GetParam().depth);
    }

    files::TempFolder folder;
};

TEST_P(SteadyJob, AllocatesNoFrameAndCopiesAtMostOne) {
    Counting counting;
    run(counting);
    // Demuxing and muxing take some hundred bytes a frame for small objects.
    constexpr std::uint64_t kLine = std::uint64_t{kSize.width} * 4;
    EXPECT_LT(counting.allocated.program / kCounted, kLine) << "less than a line of a picture";
    EXPECT_LE(counting.copied.program / kCounted, frameBytes());
}

TEST_P(SteadyJob, TellsWhatItHolds) {
    constexpr int kMostPictures = 12;
    Counting counting;
    run(counting);
    EXPECT_LE(counting.held.pictures, kMostPictures);
    const auto held = static_cast<std::int64_t>(counting.held.bytes);
    EXPECT_LE(held, counting.used);
    // Files have codecs, which use memory of their own.
    if (GetParam().piped) {
        EXPECT_LT(counting.used, held + static_cast<std::int64_t>(frameBytes()))
            << "as much as a frame is missing";
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, SteadyJob,
                         testing::Values(Kind{"a.y4m", Depth::Bits8, 8, "b.y4m"},
                                         Kind{"a.y4m", Depth::S214, 10, "b.y4m"},
                                         Kind{"a.y4m", Depth::Bits8, 8, "b.y4m", true},
                                         Kind{"a.y4m", Depth::S214, 10, "b.y4m", true},
                                         Kind{"a.mkv", Depth::Bits8, 8, "b.mkv"},
                                         Kind{"a.mkv", Depth::S214, 16, "b.mkv"},
                                         Kind{"a.mp4", Depth::Bits8, 8, "b.mp4"}));

}  // namespace
}  // namespace ruvex::jobs
