// What is submitted again, and what is not.

#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::Arguments;
using cli::operator+;
using cli::holds;
using cli::Outcome;

struct FarmResume : FakeScheduler {
    /// Two clips of four frames: chunks 0 and 1, and 2 and 3.
    void submitTwoClips() const {
        makePictures(4);
        for (const char* name : {"a", "b"}) {
            const std::string output = std::string(name) + ".%d.rgba8";
            ASSERT_EQ(cli::ruvex(Arguments{"render"} + rendering(output) +
                                 Arguments{"--save-job", path(std::string(name) + ".json")})
                          .status,
                      0);
        }
        ASSERT_EQ(farm({"submit", path("a.json"), path("b.json"), "--folder", path("out.farm"),
                        "--chunk", "2"})
                      .status,
                  0);
    }

    /// What 'resume' says, and the calls of sbatch that it makes.
    struct Resumed {
        std::string said;
        std::vector<std::string> asked;
    };
    Resumed resume(const Arguments& options = {}) const {
        const auto before = static_cast<std::ptrdiff_t>(calls("sbatch").size());
        const Outcome outcome = farm(Arguments{"resume", path("out.farm")} + options);
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        auto asked = calls("sbatch");
        asked.erase(asked.begin(), asked.begin() + before);
        return {outcome.err, asked};
    }

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
    EXPECT_EQ(calls("scancel"), std::vector<std::string>{"--state=PENDING 1"});
    EXPECT_TRUE(holds(calls("sbatch").back(), "--dependency=afterany:1:3 "));
}

TEST_F(FarmResume, OfAJobThatGoesOnSubmitsNothing) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    setQueue({"task|0|RUNNING", "task|1|PENDING", "join|0|PENDING"});
    const auto before = calls("sbatch").size();
    const Outcome outcome = farm({"resume", path("out.farm")});
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_TRUE(
        holds(outcome.err, "nothing is left to submit: 2 chunks in the queue, 1 join waiting."))
        << outcome.err;
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

TEST_F(FarmResume, TakesOtherOptionsForThisSubmission) {
    makePictures(4);
    ASSERT_EQ(submit({"--partition", "wrong", "--account", "film", "--time", "1:00", "--sbatch",
                      "--mem=8G"})
                  .status,
              0);
    const std::string job = text("out.farm/farm.json");
    const auto asked = resume({"--partition", "right", "--time", "9:00", "--join-time", "3:00",
                               "--max-tasks", "2", "--sbatch=--qos=low"})
                           .asked;
    ASSERT_EQ(asked.size(), 2u);
    for (const char* part : {"--partition=right ", "--account=film ", "--time=9:00 ",
                             "--array=0-1%2 ", "--qos=low "}) {
        EXPECT_TRUE(holds(asked[0], part)) << part << '\n' << asked[0];
    }
    EXPECT_FALSE(holds(asked[0], "--mem=8G")) << asked[0];
    EXPECT_TRUE(holds(asked[1], "--time=3:00 ")) << asked[1];
    EXPECT_EQ(text("out.farm/farm.json"), job);
    const auto again = resume().asked;
    EXPECT_TRUE(holds(again.at(0), "--partition=wrong ")) << again[0];
    EXPECT_TRUE(holds(again.at(0), "--mem=8G ")) << again[0];
    EXPECT_EQ(farm({"resume", path("out.farm"), "--sbatch=-J", "--sbatch=x"}).status, 2);
    EXPECT_EQ(farm({"resume", path("out.farm"), "--max-tasks", "0"}).status, 2);
}

TEST_F(FarmResume, SubmitsTheFailedJoinOfOneClipWhileThatOfAnotherWaits) {
    submitTwoClips();
    for (int k = 0; k < 3; ++k) ASSERT_EQ(runTask("task", k), 0);
    setQueue({"task|3|RUNNING", "join|1|PENDING"});
    const Resumed resumed = resume();
    ASSERT_EQ(resumed.asked.size(), 1u) << resumed.said;
    EXPECT_TRUE(holds(resumed.asked[0], "--array=0 ")) << resumed.asked[0];
    EXPECT_TRUE(holds(resumed.asked[0], "task.sh join 0")) << resumed.asked[0];
    EXPECT_TRUE(calls("scancel").empty());
    EXPECT_TRUE(holds(resumed.said,
                      "1 join submitted, 3 chunks done before, 1 chunk in the queue, "
                      "1 join waiting."))
        << resumed.said;
}

TEST_F(FarmResume, LeavesJoinsThatRun) {
    submitTwoClips();
    for (int k = 0; k < 3; ++k) ASSERT_EQ(runTask("task", k), 0);
    // Chunk 3 failed; the join of its clip waits in the array in which the other one runs.
    setQueue({"join|0|RUNNING", "join|1|PENDING"});
    const Resumed resumed = resume();
    ASSERT_EQ(resumed.asked.size(), 2u) << resumed.said;
    EXPECT_TRUE(holds(resumed.asked[0], "--array=3 ")) << resumed.asked[0];
    EXPECT_TRUE(holds(resumed.asked[1], "--array=1 ")) << resumed.asked[1];
    EXPECT_EQ(calls("scancel"), std::vector<std::string>{"--state=PENDING 1"});
    EXPECT_TRUE(holds(text("queue"), "join-0|1|0|RUNNING")) << text("queue");
    EXPECT_TRUE(holds(resumed.said, "1 join running")) << resumed.said;
}

TEST_F(FarmResume, ReplacesOnlyArraysOfJoinsThatHaveToWaitForMore) {
    submitTwoClips();
    for (int k = 0; k < 3; ++k) ASSERT_EQ(runTask("task", k), 0);
    write("queue", queueLine("join|0|PENDING", 7) + queueLine("join|1|PENDING", 8));
    const Resumed resumed = resume();
    EXPECT_EQ(calls("scancel"), std::vector<std::string>{"--state=PENDING 8"});
    ASSERT_EQ(resumed.asked.size(), 2u) << resumed.said;
    EXPECT_TRUE(holds(resumed.asked[1], "--array=1 ")) << resumed.asked[1];
}

TEST_F(FarmResume, OfARunningJoinAloneNamesIt) {
    makePictures(4);
    ASSERT_EQ(submit().status, 0);
    ASSERT_EQ(runTask("task", 0), 0);
    ASSERT_EQ(runTask("task", 1), 0);
    setQueue({"join|0|RUNNING"});
    const Resumed resumed = resume();
    EXPECT_TRUE(resumed.asked.empty());
    EXPECT_TRUE(holds(resumed.said, "nothing is left to submit: 1 join running.")) << resumed.said;
}

}  // namespace
}  // namespace ruvex::farm
