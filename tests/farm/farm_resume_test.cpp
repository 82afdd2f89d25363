// What is submitted again, and what is not.

#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::holds;
using cli::Outcome;

struct FarmResume : FakeScheduler {
    /// The list of elements that the last but one call of sbatch names: that of the tasks.
    std::string resumed() const {
        const Outcome outcome = farm({"resume", path("out.farm")});
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        const auto asked = calls("sbatch");
        const std::string& call = asked.at(asked.size() - 2);
        EXPECT_TRUE(holds(call, "task.sh task")) << call;
        const auto at = call.find("--array=") + 8;
        return call.substr(at, call.find(' ', at) - at);
    }
};

TEST_F(FarmResume, SubmitsOnlyWhatIsNotThere) {
    makePictures(10);
    ASSERT_EQ(submit().status, 0);
    for (const int k : {0, 1, 3}) ASSERT_EQ(runTask("task", k), 0);
    EXPECT_EQ(resumed(), "2,4");
    // A picture that is gone, or cut, or a record that is damaged.
    std::filesystem::remove(folder.file("out.1.rgba8"));
    EXPECT_EQ(resumed(), "0,2,4");
    write("out.6.rgba8", "short");
    EXPECT_EQ(resumed(), "0,2-4");
    write("out.farm/done/chunk-000001.json", "{");
    EXPECT_EQ(resumed(), "0-4");
}

TEST_F(FarmResume, LeavesWhatIsInTheQueue) {
    makePictures(10);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    setQueue({"task|1|RUNNING", "task|2|PENDING", "join|0|PENDING"});
    EXPECT_EQ(resumed(), "3-4");
    // The join that waited for the earlier tasks alone is replaced.
    EXPECT_EQ(calls("scancel"), std::vector<std::string>{"1"});
    EXPECT_TRUE(holds(calls("sbatch").back(), "--dependency=afterany:1:3 "));
}

TEST_F(FarmResume, OfAJobThatGoesOnSubmitsNothing) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    setQueue({"task|0|RUNNING", "task|1|PENDING", "join|0|PENDING"});
    const auto before = calls("sbatch").size();
    const Outcome outcome = farm({"resume", path("out.farm")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(holds(outcome.err, "2 in the queue")) << outcome.err;
    EXPECT_EQ(calls("sbatch").size(), before);
}

TEST_F(FarmResume, OfACompleteJobDoesNothing) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    runAll(2);
    const auto before = calls("sbatch").size();
    const Outcome outcome = farm({"resume", path("out.farm")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_TRUE(holds(outcome.err, "nothing is left to do")) << outcome.err;
    EXPECT_EQ(calls("sbatch").size(), before);
}

TEST_F(FarmResume, SubmitsAJoinAloneWhereAllChunksAreDone) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    ASSERT_EQ(runTask("task", 1), 0);
    ASSERT_EQ(farm({"resume", path("out.farm")}).status, 0);
    const auto asked = calls("sbatch");
    ASSERT_EQ(asked.size(), 3u);
    EXPECT_TRUE(holds(asked.back(), "task.sh join 0"));
    EXPECT_FALSE(holds(asked.back(), "--dependency"));
}

}  // namespace
}  // namespace ruvex::farm
