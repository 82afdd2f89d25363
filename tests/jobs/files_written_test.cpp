#include "jobs/files_written.h"

#include <gtest/gtest.h>

#include "tests/jobs/job_clip.h"

namespace ruvex::jobs {
namespace {

struct FilesWrittenTest : testing::Test {
    /// The field that is wrong with a render into `output`; empty if there is none.
    std::optional<JobField> wrongField(const std::filesystem::path& output,
                                       std::optional<FrameRange> frames = {}) const {
        RenderJob job = clip.job();
        job.output = output;
        job.frames = frames;
        try {
            static_cast<void>(clip.plan(job));
        } catch (const JobError& error) {
            return error.field();
        }
        return std::nullopt;
    }

    JobClip clip{{8, 6}, media::Depth::Bits8, 3};
};

TEST_F(FilesWrittenTest, TheInputIsKept) {
    EXPECT_EQ(wrongField(clip.path("in")), JobField::Output);
    EXPECT_EQ(wrongField(clip.folder.file("in.%01d.rgba8")), JobField::Output);
    EXPECT_EQ(wrongField(clip.folder.file("./in.1.rgba8"), FrameRange{2, 2}), JobField::Output);
    EXPECT_FALSE(wrongField(clip.path("out")));
    EXPECT_FALSE(wrongField(clip.folder.file("in.%02d.rgba8")));
}

TEST_F(FilesWrittenTest, OnlyTheFilesOfTheFramesCount) {
    const auto name = [&](int k) { return files::NumberedPath(clip.path("out")).file(k); };
    std::filesystem::create_hard_link(files::NumberedPath(clip.path("in")).file(0), name(1));
    EXPECT_EQ(wrongField(clip.path("out")), JobField::Output);
    EXPECT_EQ(wrongField(clip.path("out"), FrameRange{1, 1}), JobField::Output);
    EXPECT_FALSE(wrongField(clip.path("out"), FrameRange{0, 0}));
    EXPECT_FALSE(wrongField(clip.path("out"), FrameRange{2, 2}));
}

TEST_F(FilesWrittenTest, NothingIsReplacedWhereNothingIs) {
    FilesWritten written;
    written.add("");
    written.add(clip.folder.file("none"));
    written.addOutput(clip.path("none"), {0, 9});
    written.addOutput(clip.folder.file("none.mkv"), {0, 9});
    EXPECT_NO_THROW(written.checkInputKept(clip.path("in")));
    EXPECT_NO_THROW(written.checkKept("", "mask"));
}

}  // namespace
}  // namespace ruvex::jobs
