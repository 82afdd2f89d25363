#include "jobs/job_file.h"

#include <fstream>
#include <gtest/gtest.h>
#include <random>

#include "files/file_error.h"
#include "jobs/stored_path.h"
#include "looks/presets.h"
#include "parameters/presets.h"
#include "tests/support/temp_folder.h"

namespace ruvex::jobs {
namespace {

namespace fs = std::filesystem;
using Warnings = std::vector<std::string>;

RenderJob parse(const std::string& text, const fs::path& folder = {}) {
    Warnings warnings;
    RenderJob job = parseJob("job.json", text, folder, warnings);
    EXPECT_EQ(warnings, Warnings{}) << text;
    return job;
}

std::string refusal(const std::string& text) {
    try {
        Warnings warnings;
        parseJob("job.json", text, {}, warnings);
    } catch (const JobFileError& error) {
        return error.what();
    }
    return "";
}

/// A job file with these members beside those that every job has.
std::string textWith(const std::string& members) {
    return "{\"ruvexJob\": 1, \"input\": \"a.mp4\", \"output\": \"b.mp4\"" +
           (members.empty() ? "" : ", " + members) + "}";
}

/// The job in stored/version1.json as it is meant.
RenderJob storedJob(const fs::path& folder) {
    RenderJob job;
    job.input = folder / "shot.%04d.png";
    job.rate = media::Rational{30000, 1001};
    job.alpha = media::AlphaForm::Premultiplied;
    job.fieldOrder = media::FieldOrder::TopFirst;
    job.output = folder / "../out/bad.mkv";
    job.codec = "ffv1";
    job.frames = FrameRange{10, 19};
    job.depth = media::Depth::S214;
    job.workers = 8;
    job.projectSize = media::FrameSize{960, 540};
    job.pixelAspect = 1.4587;
    job.region = Region{1, 2, 300, 200};
    job.fields = true;
    job.mask = folder / "caf\xE9.png";
    job.ends = ClipEnds::Hold;
    job.comparison = Comparison{Comparison::Kind::Split, 0.25};
    job.framesAtOnce = 2;
    job.resume = true;
    job.parameters = {looks::Setting{ParameterId::TvType, 1},
                      looks::Animation{ParameterId::SnowMax, {{0, -0.5}, {2, 60}}},
                      looks::Setting{ParameterId::FishEye, 1}};
    return job;
}

class RandomJob {
public:
    explicit RandomJob(unsigned seed) : random_(seed) {}

    RenderJob make() {
        RenderJob job;
        job.input = text("in");
        job.output = text("out");
        give(job.inputFormat, media::FileKind::RawS214);
        give(job.size, media::FrameSize{whole(), whole()});
        give(job.rate, media::makeRational(whole(), whole()));
        give(job.alpha, media::AlphaForm::Straight);
        give(job.fieldOrder, media::FieldOrder::Progressive);
        give(job.outputFormat, media::FileKind::Y4m);
        give(job.codec, std::string("h264"));
        give(job.quality, whole());
        give(job.encoderSpeed, std::string("fast"));
        give(job.encoderThreads, whole());
        give(job.exrPixels, media::ExrPixels::Half);
        give(job.exrCompression, media::ExrCompression::Rle);
        job.mute = coin();
        give(job.frames, FrameRange{whole(), whole() + (std::int64_t{1} << 40)});
        give(job.depth, media::Depth::Bits8);
        give(job.workers, whole());
        give(job.projectSize, media::FrameSize{whole(), whole()});
        job.pixelAspect = std::uniform_real_distribution<>(0.01, 100.0)(random_);
        give(job.region, Region{whole(), whole(), whole(), whole()});
        job.fields = coin();
        if (coin()) job.mask = text("mask");
        job.ends = coin() ? ClipEnds::Loop : ClipEnds::Blank;
        give(job.comparison, Comparison{Comparison::Kind::SideBySide, 0.3});
        job.framesAtOnce = whole();
        job.resume = coin();
        job.parameters = looks::lastChanges(looks::presetChanges(whole() % kPresetCount));
        return job;
    }

private:
    bool coin() { return random_() % 2 == 0; }
    int whole() { return static_cast<int>(random_() % 5000) + 1; }
    /// A path of random bytes, but for zero and the separator.
    fs::path text(std::string bytes) {
        for (int i = 0; i < 8; ++i) {
            const char byte = static_cast<char>(random_() % 255 + 1);
            bytes += byte == '/' ? 'x' : byte;
        }
        return bytes;
    }
    template <class Value>
    void give(std::optional<Value>& to, Value value) {
        if (coin()) to = std::move(value);
    }

    std::mt19937 random_;
};

TEST(JobFile, EveryJobIsReadBackAsItWas) {
    for (unsigned seed = 0; seed < 500; ++seed) {
        const RenderJob job = RandomJob(seed).make();
        EXPECT_TRUE(parse(jobText(job, {})) == job) << jobText(job, {});
    }
}

TEST(JobFile, DefaultsAreLeftOut) {
    RenderJob job;
    job.input = "a.mp4";
    job.output = "b.mp4";
    EXPECT_EQ(jobText(job, {}),
              "{\n  \"ruvexJob\": 1,\n  \"input\": \"a.mp4\",\n  \"output\": \"b.mp4\"\n}\n");
}

TEST(JobFile, OfAParameterTheLastChangeCounts) {
    RenderJob job;
    job.input = "a.mp4";
    job.output = "b.mp4";
    job.parameters = {looks::Setting{ParameterId::SnowMax, 1},
                      looks::Setting{ParameterId::Resolution, 5},
                      looks::Setting{ParameterId::SnowMax, 2}};
    const auto back = parse(jobText(job, {})).parameters;
    EXPECT_EQ(back, looks::lastChanges(job.parameters));
    EXPECT_EQ(back.size(), 2u);
}

TEST(JobFile, HasTheModesOfKeys) {
    RenderJob job;
    job.input = "a.mp4";
    job.output = "b.mp4";
    job.parameters = {
        looks::Animation{ParameterId::SnowMax,
                         {{0, 5, looks::KeyMode::Hold}, {1, 6, looks::KeyMode::Smooth}, {2, 60}}}};
    EXPECT_TRUE(parse(jobText(job, {})) == job) << jobText(job, {});
}

// The file stays as it is when later versions come.
TEST(JobFile, VersionOneIsRead) {
    Warnings warnings;
    const fs::path folder = RUVEX_STORED_JOBS;
    EXPECT_TRUE(readJob(folder / "version1.json", warnings) == storedJob(folder));
    EXPECT_EQ(warnings, Warnings{});
}

TEST(JobFile, ALaterVersionIsNamed) {
    const std::string said = refusal("{\"ruvexJob\": " + std::to_string(kJobVersion + 1) +
                                     ", \"input\": 7, \"new\": 1}");
    EXPECT_EQ(said, "job.json: this job is of version " + std::to_string(kJobVersion + 1) +
                        ", and this program reads versions up to " + std::to_string(kJobVersion) +
                        ". Use a later ruvex.");
    for (const char* version : {"0", "-1", "1.5", "\"1\"", "null", "99999999999999999999"}) {
        EXPECT_NE(refusal(std::string("{\"ruvexJob\": ") + version + "}"), "") << version;
    }
}

TEST(JobFile, WhatIsWrongIsSaidInOneSentence) {
    EXPECT_EQ(refusal(textWith("\"speed\": 2")), "job.json: a render job has no field 'speed'.");
    EXPECT_EQ(refusal("{\"ruvexJob\": 1, \"input\": \"a\"}"),
              "job.json: the field 'output' is missing.");
    EXPECT_EQ(refusal("{\"ruvexJob\": 1, \"output\": \"a\"}"),
              "job.json: the field 'input' is missing.");
    EXPECT_EQ(refusal("{}"), "job.json: this is not a render job: it has no field 'ruvexJob'.");
    EXPECT_EQ(refusal("[1]"), "job.json: this is not a render job: it has no field 'ruvexJob'.");
    EXPECT_EQ(refusal(textWith("\"depth\": 10")), "job.json: depth: 10 is not 8 or 16.");
    EXPECT_EQ(refusal(textWith("\"ends\": \"mirror\"")),
              "job.json: ends: \"mirror\" is not one of blank, hold, loop.");
    EXPECT_EQ(refusal(textWith("\"depth\": 8, \"depth\": 8")), "job.json: 'depth' occurs twice.");
    EXPECT_NE(refusal(textWith("\"parameters\": {\"Snow Mux\": 1}")).find("'Snow Max'"),
              std::string::npos);
    EXPECT_EQ(refusal(textWith("\"workers\": 3000000000")),
              "job.json: workers: 3000000000 is out of range.");
    EXPECT_EQ(refusal(textWith("\"workers\": 1.5")),
              "job.json: workers: 1.5 is not a whole number.");
    EXPECT_NE(refusal("{\"ruvexJob\": 1,").find("not valid JSON"), std::string::npos);
}

TEST(JobFile, ValuesOfAnotherTypeAreRefused) {
    for (const char* member : {"\"size\": \"720x576\"",
                               "\"size\": {\"width\": 1}",
                               "\"size\": {\"width\": 1, \"height\": 2, \"depth\": 3}",
                               "\"size\": {\"width\": 1.5, \"height\": 2}",
                               "\"rate\": 25",
                               "\"rate\": \"0\"",
                               "\"rate\": \"-1/2\"",
                               "\"alpha\": 1",
                               "\"codec\": 264",
                               "\"quality\": \"95\"",
                               "\"quality\": 2147483648",
                               "\"frames\": \"0-9\"",
                               "\"frames\": {\"first\": 0}",
                               "\"frames\": {\"first\": 0, \"last\": 18446744073709551615}",
                               "\"depth\": \"8\"",
                               "\"workers\": 1e3",
                               "\"pixelAspect\": \"1\"",
                               "\"fields\": 1",
                               "\"resume\": null",
                               "\"mask\": 7",
                               "\"mask\": \"\"",
                               "\"mask\": {\"percentEncoded\": \"%zz\"}",
                               "\"mask\": {\"percentEncoded\": \"%E\"}",
                               "\"mask\": {\"bytes\": \"a\"}",
                               "\"mask\": \"a\\u0000b\"",
                               "\"comparison\": \"split\"",
                               "\"comparison\": {\"splitAt\": 0.5}",
                               "\"comparison\": {\"kind\": \"split\", \"x\": 1}",
                               "\"parameters\": []"}) {
        EXPECT_NE(refusal(textWith(member)), "") << member;
    }
}

TEST(JobFile, ValuesThatTheRenderClampsAreWarnedOf) {
    Warnings warnings;
    parseJob("job.json", textWith("\"parameters\": {\"Resolution\": 150}"), {}, warnings);
    ASSERT_EQ(warnings.size(), 1u);
    EXPECT_TRUE(warnings[0].starts_with("job.json: ")) << warnings[0];
}

TEST(StoredPath, RelativeNamesCountFromTheJobFile) {
    const files::TempFolder folder;
    fs::create_directories(folder.file("a/b"));
    fs::create_directory_symlink(folder.file("a/b"), folder.file("link"));
    const auto stored = [&](const char* path, const char* job) {
        return storedPath(folder.file(path).lexically_relative(fs::current_path()),
                          folder.file(job));
    };
    EXPECT_EQ(stored("a/clip.%03d.png", "a"), "clip.%03d.png");
    EXPECT_EQ(stored("clip.mp4", "a/b"), "../../clip.mp4");
    EXPECT_EQ(stored("a/clip.mp4", "link"), "../clip.mp4");
    EXPECT_EQ(storedPath("/x/clip.mp4", folder.file("a")), "/x/clip.mp4");
    EXPECT_EQ(pathFromStored("../clip.mp4", "a/b"), "a/b/../clip.mp4");
    EXPECT_EQ(pathFromStored("/x/clip.mp4", "a"), "/x/clip.mp4");
}

TEST(StoredPath, StandardStreamsStayStreamsAndFilesFiles) {
    const files::TempFolder folder;
    EXPECT_EQ(storedPath("-", folder.path()), "-");
    EXPECT_EQ(pathFromStored("-", folder.path()), "-");
    const fs::path here = (folder.path() / "-").lexically_relative(fs::current_path());
    EXPECT_EQ(storedPath(here, folder.path()), "./-");
    EXPECT_EQ(pathFromStored("./-", "a"), "a/./-");
}

TEST(StoredPath, TheBytesOfAnyNameSurvive) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string name = std::string("a") + static_cast<char>(byte) + "%41b";
        EXPECT_EQ(pathFromStored(storedPath(name, {}), {}).string(), name) << byte;
    }
}

TEST(JobFile, AFileIsWrittenWholeAndReadBack) {
    const files::TempFolder folder;
    RenderJob job = storedJob("");
    job.input = folder.file("shot.%04d.png");
    writeJob(job, folder.file("job.json"));
    Warnings warnings;
    const RenderJob back = readJob(folder.file("job.json"), warnings);
    EXPECT_EQ(back.input, job.input);
    EXPECT_EQ(back.parameters, job.parameters);
    EXPECT_THROW(readJob(folder.file("none.json"), warnings), files::FileError);
    EXPECT_THROW(writeJob(job, folder.file("none/job.json")), files::FileError);
}

}  // namespace
}  // namespace ruvex::jobs
