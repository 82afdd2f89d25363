// Farm jobs that cannot be made, and those that are not what was submitted.

#include <algorithm>
#include <fcntl.h>
#include <sys/file.h>

#include "tests/farm/fake_scheduler.h"

namespace ruvex::farm {
namespace {

using cli::Arguments;
using cli::operator+;
using cli::holds;
using cli::Outcome;

struct FarmRefusal : FakeScheduler {
    /// The sentence of a command that has to fail with this status.
    std::string refused(const Arguments& words, int status = 1) const {
        const Outcome outcome = farm(words);
        EXPECT_EQ(outcome.status, status) << outcome.err;
        // One line, and after a wrong command line perhaps what was meant.
        EXPECT_LE(std::ranges::count(outcome.err, '\n'), status == 2 ? 2 : 1) << outcome.err;
        return outcome.err;
    }

    void replaceIn(const std::string& name, const std::string& part, const std::string& by) const {
        std::string content = text(name);
        ASSERT_TRUE(holds(content, part)) << content;
        write(name, content.replace(content.find(part), part.size(), by));
    }

    std::string saidByTask() const {
        EXPECT_EQ(runTask("task", 0), 1);
        const std::string log = text("out.farm/logs/ruvex-" + id() + "-task-0_0.txt");
        return log.substr(log.find('\n') + 1);
    }
};

TEST_F(FarmRefusal, OfASecondSubmissionIntoOneFolder) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    const std::string before = text("out.farm/farm.json");
    const Outcome again = submit();
    EXPECT_EQ(again.status, 1);
    EXPECT_TRUE(holds(again.err, "holds a farm job already")) << again.err;
    EXPECT_EQ(text("out.farm/farm.json"), before);
    std::filesystem::create_directory(folder.file("mine"));
    EXPECT_TRUE(holds(submit({"--folder", path("mine")}).err, "holds no farm job"));
}

TEST_F(FarmRefusal, OfAFolderThatCannotBeUsed) {
    makePictures(2);
    for (const char* name : {"a%A", "b\\c", "d\ne"}) {
        const Outcome outcome = submit({"--folder", path(name)});
        EXPECT_EQ(outcome.status, 1) << name;
        EXPECT_TRUE(holds(outcome.err, "may not contain")) << outcome.err;
        EXPECT_FALSE(exists(name));
    }
    const Outcome nowhere = farm(Arguments{"submit"} + rendering("nowhere/out.%d.rgba8") +
                                 Arguments{"--folder", path("out.farm")});
    EXPECT_EQ(nowhere.status, 1);
    EXPECT_TRUE(holds(nowhere.err, "nowhere does not exist")) << nowhere.err;
    EXPECT_FALSE(exists("out.farm"));
}

TEST_F(FarmRefusal, OfTwoRendersIntoOneFile) {
    makePictures(4);
    const auto save = [&](const std::string& output, const std::string& frames,
                          const std::string& name) {
        EXPECT_EQ(cli::ruvex(Arguments{"render"} + rendering(output) +
                             Arguments{"--frames", frames, "--save-job", path(name)})
                      .status,
                  0);
    };
    save("out.%d.rgba8", "0-2", "a.json");
    save("out.%01d.rgba8", "2-3", "b.json");
    save("out.%01d.rgba8", "3-3", "c.json");
    const auto both = [&](const std::string& other) {
        return Arguments{"submit", path("a.json"), path(other), "--folder", path("two.farm")};
    };
    EXPECT_TRUE(holds(refused(both("b.json")), "would both become " + path("out.2.rgba8")));
    EXPECT_EQ(farm(both("c.json")).status, 0);
}

TEST_F(FarmRefusal, OfASubmissionDuringAnother) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    const int lock = open(path("out.farm/lock").c_str(), O_RDWR | O_CREAT, 0666);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    EXPECT_TRUE(holds(refused({"resume", path("out.farm")}), "is under way"));
    close(lock);
    EXPECT_EQ(farm({"resume", path("out.farm")}).status, 0);
}

TEST_F(FarmRefusal, OfAJobThatWasChanged) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    replaceIn("out.farm/jobs/0-out__d.json", "\"workers\": 8", "\"workers\": 7");
    EXPECT_TRUE(holds(saidByTask(), "was changed after the submission"));
    EXPECT_TRUE(holds(refused({"resume", path("out.farm")}), "was changed after the submission"));
    EXPECT_FALSE(exists("out.0.rgba8"));
}

TEST_F(FarmRefusal, OfAnotherProgram) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    replaceIn("out.farm/farm.json", "\"version\": \"", "\"version\": \"9.");
    EXPECT_TRUE(holds(saidByTask(), "Install one and the same on every machine"));
    EXPECT_TRUE(holds(refused({"resume", path("out.farm")}), "but the farm job was made by"));
    const Outcome join = farm({"join", path("out.farm"), "0"});
    EXPECT_EQ(join.status, 1);
    EXPECT_TRUE(holds(join.err, "but the farm job was made by")) << join.err;
}

TEST_F(FarmRefusal, OfAnotherFolderOfTheSameName) {
    makePictures(2);
    ASSERT_EQ(submit().status, 0);
    EXPECT_TRUE(holds(refused({"task", path("out.farm"), "0", "--id", "0123"}),
                      "sees another farm job in"));
    EXPECT_TRUE(holds(refused({"task", path("none.farm"), "0"}), "sees no farm job in"));
    EXPECT_TRUE(holds(refused({"status", path("none.farm")}), "sees no farm job in"));
    EXPECT_TRUE(holds(refused({"task", path("out.farm"), "1"}), "There is no chunk 1"));
    EXPECT_TRUE(holds(refused({"join", path("out.farm"), "1"}), "There is no clip 1"));
    EXPECT_EQ(farm({"task", path("out.farm"), "x"}).status, 2);
}

TEST_F(FarmRefusal, OfWhatOneMachineHasToRender) {
    makePictures(2);
    EXPECT_TRUE(holds(refused({"submit", "-", "-o", path("o.%d.png")}), "one machine only"));
    EXPECT_TRUE(
        holds(refused(Arguments{"submit"} + rendering("o.rgba8") + Arguments{"--frames", "1"}),
              "holds one picture"));
    EXPECT_EQ(farm({"submit", path("in.%d.rgba8")}).status, 2);
    EXPECT_EQ(submit({}, "0").status, 2);
    EXPECT_EQ(submit({"--max-tasks", "none"}).status, 2);
    EXPECT_EQ(submit({"--dry-run"}).status, 2);
    EXPECT_TRUE(
        holds(refused({"submit", path("in.%d.rgba8"), path("job.json"), "-o", path("o/")}, 2),
              "do not go together"));
    EXPECT_TRUE(
        holds(refused({"submit", path("job.json"), "--preset", "Clean"}, 2), "--preset does not"));
    EXPECT_TRUE(holds(refused({"submit", path("job.json")}), "there is no such file"));
    EXPECT_FALSE(exists("out.farm"));
    EXPECT_TRUE(calls("sbatch").empty());
}

TEST_F(FarmRefusal, LeavesNothingWhereTheFolderCannotBe) {
    makePictures(2);
    const Outcome outcome = submit({"--folder", path("no/where.farm")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(holds(outcome.err, "no/where.farm: the folder does not exist")) << outcome.err;
    for (const std::string& name : folder.names()) EXPECT_FALSE(holds(name, "partial")) << name;
}

}  // namespace
}  // namespace ruvex::farm
