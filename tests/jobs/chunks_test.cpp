// Renders in chunks against renders in one piece: the same bytes.

#include "jobs/chunks.h"

#include <fstream>
#include <gtest/gtest.h>

#include "files/numbered_path.h"
#include "looks/presets.h"
#include "media/media_error.h"
#include "parameters/presets.h"
#include "tests/media/test_clips.h"
#include "tests/support/temp_folder.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;

constexpr int kClipFrames = 11;
constexpr media::FrameSize kClipSize = {256, 120};  // DNxHR takes no smaller ones.

std::string bytesOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A clip of noise in a folder of its own: a video with sound and tags, or deep frames without.
class ClipInChunks {
public:
    explicit ClipInChunks(media::Depth depth = media::Depth::Bits8,
                          media::FrameSize size = kClipSize,
                          media::FieldOrder fields = media::FieldOrder::Progressive) {
        input_ = folder.file("silent.mkv");
        media::WriteOptions options{.size = size, .depth = depth, .pixelAspect = {16, 15}};
        options.fields = fields;
        options.tags.timecode = "10:00:00:05";
        options.tags.words = {{"title", "Reel 1"}};
        std::vector<media::Frame> frames;
        for (unsigned k = 0; k < kClipFrames; ++k) {
            frames.push_back(media::noiseFrame(size, depth, k, true));
        }
        media::writeAll(input_, options, frames);
    }

    /// Adds a track of AAC, which needs the ffmpeg command.
    void addSound() {
        const fs::path silent = input_;
        input_ = folder.file("in.mkv");
        media::runFfmpeg("-i " + media::quoted(silent) +
                             " -f lavfi -i sine=frequency=440:duration=0.68 -map 0 -map 1 -c:v "
                             "copy -c:a aac -strict -2",
                         input_);
    }

    RenderJob job(const std::string& output, const std::string& codec = {}) const {
        RenderJob job;
        job.input = input_;
        job.output = folder.file(output);
        if (!codec.empty()) job.codec = codec;
        job.workers = 2;
        job.parameters = looks::presetChanges(*findPreset("Bad Colour TV"));
        return job;
    }

    static RenderPlan plan(const RenderJob& job) {
        std::vector<Note> notes;
        return planRender(job, media::openReader(job.input, readingOf(job))->info(), notes);
    }

    /// Chunks of these numbers of frames, over and over.
    std::vector<Chunk> chunks(const RenderPlan& plan, const std::vector<int>& lengths) const {
        std::vector<Chunk> chunks;
        std::int64_t first = plan.frames.first;
        for (std::size_t i = 0; first <= plan.frames.last; ++i) {
            const std::int64_t last =
                std::min(first + lengths[i % lengths.size()] - 1, plan.frames.last);
            Chunk chunk{.frames = {first, last}, .file = {}};
            if (isJoined(plan)) {
                chunk.file = folder.file("chunk" + std::to_string(i) + chunkExtension(plan));
            }
            chunks.push_back(chunk);
            first = last + 1;
        }
        return chunks;
    }

    files::TempFolder folder;

private:
    fs::path input_;
};

RenderEnd renderChunk(const RenderPlan& plan, const Chunk& chunk, RenderEvents& events,
                      const std::stop_token& stop = {}) {
    return jobs::renderChunk(plan, media::openReader(plan.input, plan.reading), chunk, events,
                             stop);
}

std::vector<std::string> render(const RenderPlan& plan, const std::vector<Chunk>& chunks) {
    std::vector<std::string> digests;
    RenderEvents nobody;
    for (const Chunk& chunk : chunks) {
        EXPECT_EQ(renderChunk(plan, chunk, nobody), RenderEnd::Finished);
        digests.push_back(digestOf(plan, chunk));
        EXPECT_EQ(digests.back().size(), 32u);
    }
    return digests;
}

struct Counter final : RenderEvents {
    void begun(const FramesToMake& frames) override { count = frames.count(); }
    void frameWritten() override {
        if (++written == stopAfter) source.request_stop();
    }
    void finished() override { ended = true; }

    std::optional<std::int64_t> count;
    int written = 0;
    int stopAfter = 0;
    std::stop_source source;
    bool ended = false;
};

/// Renders the job in one piece and in chunks, and compares the two files.
void expectTheSame(const ClipInChunks& clip, RenderJob job, const std::vector<int>& lengths) {
    const RenderPlan plan = ClipInChunks::plan(job);
    RenderEvents nobody;
    ASSERT_EQ(runRender(plan, nobody), RenderEnd::Finished);
    const std::string whole = bytesOf(job.output);
    fs::remove(job.output);
    const auto chunks = clip.chunks(plan, lengths);
    const auto digests = render(plan, chunks);
    Counter events;
    ASSERT_EQ(joinChunks(plan, chunks, digests, events), RenderEnd::Finished);
    EXPECT_EQ(events.count, plan.frames.count());
    EXPECT_EQ(events.written, plan.frames.count());
    EXPECT_TRUE(events.ended);
    EXPECT_GT(whole.size(), 1000u);
    EXPECT_TRUE(bytesOf(job.output) == whole)
        << job.output << " " << job.codec.value_or("") << " " << lengths.front();
}

/// The codecs of the project that code each frame by itself.
struct FrameCodec {
    const char* output;
    const char* codec;
};
constexpr FrameCodec kFrameCodecs[] = {
    {"o.mkv", "ffv1"}, {"o.mkv", "prores-422"}, {"o.mov", "prores-4444"}, {"o.mxf", "dnxhr-hqx"}};

TEST(Chunks, OfFrameCodecsAreJoinedIntoTheBytesOfOneRender) {
    ClipInChunks clip;
    clip.addSound();
    for (const FrameCodec& codec : kFrameCodecs) {
        expectTheSame(clip, clip.job(codec.output, codec.codec), {5, 1});
    }
}

TEST(Chunks, OfDeepFramesAreJoined) {
    const ClipInChunks clip(media::Depth::S214, {128, 96});
    expectTheSame(clip, clip.job("o.mkv"), {6});
    expectTheSame(clip, clip.job("o.mxf", "prores-422-lt"), {6});
}

TEST(Chunks, OfSmallPicturesAndPremultipliedColourAreJoined) {
    const ClipInChunks clip(media::Depth::Bits8, {33, 21});
    for (const char* output : {"o.mkv", "o.mov"}) {
        RenderJob job = clip.job(output);
        job.resultAlpha = ResultAlpha::Effect;
        job.alpha = media::AlphaForm::Premultiplied;
        expectTheSame(clip, job, {1});
    }
}

TEST(Chunks, OfFieldsAreJoined) {
    for (const auto order : {media::FieldOrder::TopFirst, media::FieldOrder::BottomFirst}) {
        const ClipInChunks clip(media::Depth::Bits8, {64, 48}, order);
        RenderJob job = clip.job("o.mov");
        job.fields = true;
        expectTheSame(clip, job, {4});
        RenderJob coded = clip.job("o.mp4", "h264");
        coded.fields = true;
        coded.encoderThreads = 2;
        expectTheSame(clip, coded, {4});
    }
}

TEST(Chunks, OfH264AndH265AreCodedOnce) {
    ClipInChunks clip;
    clip.addSound();
    for (const char* output : {"o.mp4", "o.mkv"}) {
        RenderJob job = clip.job(output, "h264");
        job.encoderThreads = 3;
        expectTheSame(clip, job, {7});
    }
    RenderJob job = clip.job("o.mp4", "h265");
    job.encoderThreads = 2;
    job.encoderSpeed = "ultrafast";
    expectTheSame(clip, job, {3});
}

TEST(Chunks, OfH264AndH265KeepDepthAndOddSizes) {
    const ClipInChunks clip(media::Depth::S214, {65, 47});
    for (const char* codec : {"h264", "h265"}) {
        RenderJob job = clip.job("o.mp4", codec);
        job.encoderThreads = 1;
        job.encoderSpeed = "ultrafast";
        expectTheSame(clip, job, {8});
    }
}

TEST(Chunks, OfARangeReadFramesFromOutsideOfIt) {
    ClipInChunks clip;
    clip.addSound();
    RenderJob job = clip.job("o.mkv");
    job.frames = FrameRange{3, 9};
    job.ends = ClipEnds::Loop;
    job.parameters = {looks::Setting{ParameterId::PlaySpeed, 300}};
    expectTheSame(clip, job, {2, 3});
}

TEST(Chunks, OfASequenceKeepWhatIsComplete) {
    const ClipInChunks clip(media::Depth::Bits8, {48, 30});
    const RenderPlan whole = ClipInChunks::plan(clip.job("whole.%03d.png"));
    RenderEvents nobody;
    ASSERT_EQ(runRender(whole, nobody), RenderEnd::Finished);
    const RenderPlan plan = ClipInChunks::plan(clip.job("o.%03d.png"));
    EXPECT_FALSE(isJoined(plan));
    const auto chunks = clip.chunks(plan, {6});
    const auto digests = render(plan, chunks);
    const files::NumberedPath names(plan.output);
    for (int k = 0; k < kClipFrames; ++k) {
        EXPECT_TRUE(bytesOf(names.file(k)) == bytesOf(files::NumberedPath(whole.output).file(k)));
    }
    fs::remove(names.file(9));
    EXPECT_NE(media::complaintOf([&] { digestOf(plan, chunks[1]); }).find("o.009.png"),
              std::string::npos);
    Counter events;
    ASSERT_EQ(renderChunk(plan, chunks[1], events), RenderEnd::Finished);
    EXPECT_EQ(events.written, 1);
    EXPECT_EQ(digestOf(plan, chunks[1]), digests[1]);
    EXPECT_THROW(joinChunks(plan, chunks, digests, nobody), JobError);
}

/// Chunks of a small FFV1, H.264 or ProRes clip, to be damaged.
class Damaged : public testing::TestWithParam<const char*> {
protected:
    Damaged() : clip(media::Depth::Bits8, {64, 48}) {
        RenderJob job = clip.job(GetParam());
        job.parameters.clear();
        plan = ClipInChunks::plan(job);
        chunks = clip.chunks(plan, {4});
        digests = render(plan, chunks);
        EXPECT_EQ(chunks.size(), 3u);
    }

    /// What joining says; the result must not be there.
    std::string complaint() {
        const std::string said = media::complaintOf([&] {
            RenderEvents nobody;
            joinChunks(plan, chunks, digests, nobody);
        });
        EXPECT_FALSE(fs::exists(plan.output));
        for (const std::string& name : clip.folder.names()) {
            EXPECT_EQ(name.find("partial"), std::string::npos) << name;
        }
        return said;
    }
    bool names(const std::string& said, std::size_t chunk) const {
        return said.find("Chunk " + toText(chunks[chunk].frames)) != std::string::npos;
    }

    ClipInChunks clip;
    RenderPlan plan;
    std::vector<Chunk> chunks;
    std::vector<std::string> digests;
};

TEST_P(Damaged, MissingChunksAreNamed) {
    fs::remove(chunks[1].file);
    EXPECT_TRUE(names(complaint(), 1)) << complaint();
}

TEST_P(Damaged, ChunksThatAreCutOffAreNamed) {
    const std::string bytes = bytesOf(chunks[1].file);
    for (const double part : {0.0, 0.02, 0.3, 0.9}) {
        std::ofstream(chunks[1].file, std::ios::binary) << bytes;
        media::cutTo(chunks[1].file, part);
        EXPECT_TRUE(names(complaint(), 1)) << part << complaint();
    }
}

TEST_P(Damaged, ASingleBitIsNoticed) {
    std::string bytes = bytesOf(chunks[2].file);
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 4);
    std::ofstream(chunks[2].file, std::ios::binary) << bytes;
    EXPECT_TRUE(names(complaint(), 2)) << complaint();
}

TEST_P(Damaged, SwappedChunksAreNoticed) {
    fs::rename(chunks[0].file, clip.folder.file("kept.mkv"));
    fs::rename(chunks[1].file, chunks[0].file);
    fs::rename(clip.folder.file("kept.mkv"), chunks[1].file);
    EXPECT_TRUE(names(complaint(), 0)) << complaint();
    std::swap(digests[0], digests[1]);
    EXPECT_TRUE(names(complaint(), 0)) << complaint();
}

TEST_P(Damaged, ChunksOfAnotherSizeAreNoticed) {
    RenderJob job = clip.job("other." + std::string(GetParam()).substr(2));
    job.outputSize = media::FrameSize{62, 48};
    const RenderPlan other = ClipInChunks::plan(job);
    Chunk chunk = chunks[1];
    RenderEvents nobody;
    ASSERT_EQ(renderChunk(other, chunk, nobody), RenderEnd::Finished);
    digests[1] = digestOf(other, chunk);
    EXPECT_TRUE(names(complaint(), 1)) << complaint();
}

TEST_P(Damaged, AStoppedJoinLeavesNothing) {
    Counter events;
    events.stopAfter = 1;
    const RenderEnd end = joinChunks(plan, chunks, digests, events, events.source.get_token());
    // An encoder that looks ahead further than this clip is long writes its frames at the end.
    EXPECT_EQ(end == RenderEnd::Finished, fs::exists(plan.output));
    fs::remove(plan.output);
    std::stop_source before;
    before.request_stop();
    EXPECT_EQ(joinChunks(plan, chunks, digests, events, before.get_token()), RenderEnd::Stopped);
    EXPECT_FALSE(fs::exists(plan.output));
    EXPECT_EQ(clip.folder.names().size(), 1 + chunks.size());
}

TEST_P(Damaged, ChunksHaveToBeAllFramesInOrder) {
    RenderEvents nobody;
    const auto join = [&] { joinChunks(plan, chunks, digests, nobody); };
    std::swap(chunks[0], chunks[1]);
    EXPECT_THROW(join(), JobError);
    std::swap(chunks[0], chunks[1]);
    digests.pop_back();
    EXPECT_THROW(join(), JobError);
    chunks.pop_back();
    EXPECT_THROW(join(), JobError);
    EXPECT_FALSE(fs::exists(plan.output));
}

INSTANTIATE_TEST_SUITE_P(Outputs, Damaged, testing::Values("o.mkv", "o.mp4", "o.mov"),
                         [](const auto& info) { return std::string(info.param).substr(2); });

TEST(Chunks, OfAStoppedTaskAreNotThere) {
    const ClipInChunks clip(media::Depth::Bits8, {64, 48});
    const RenderPlan plan = ClipInChunks::plan(clip.job("o.mkv"));
    const Chunk chunk{.frames = {2, 10}, .file = clip.folder.file("chunk.mkv")};
    Counter events;
    events.stopAfter = 3;
    EXPECT_EQ(renderChunk(plan, chunk, events, events.source.get_token()), RenderEnd::Stopped);
    EXPECT_EQ(clip.folder.names(), std::vector<std::string>{"silent.mkv"});
}

TEST(Chunks, StreamsAreRefused) {
    const ClipInChunks clip(media::Depth::Bits8, {16, 12});
    RenderPlan plan = ClipInChunks::plan(clip.job("o.mkv"));
    checkInChunks(plan);
    plan.input = "-";
    EXPECT_THROW(checkInChunks(plan), JobError);
    for (const char* output : {"o.y4m", "-"}) {
        RenderJob job = clip.job(output);
        job.output = output;
        EXPECT_THROW(checkInChunks(ClipInChunks::plan(job)), JobError);
    }
}

}  // namespace
}  // namespace ruvex::jobs
