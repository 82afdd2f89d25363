#include "farm/sbatch_options.h"

#include <gtest/gtest.h>

namespace ruvex::farm {
namespace {

using Words = std::vector<std::string>;

TEST(SbatchOptions, OfTheFarmItselfAreRefused) {
    for (const char* word : {"--job-name=x",
                             "-J",
                             "-Jx",
                             "--array=0-3",
                             "-a",
                             "-a0-3",
                             "--output=o",
                             "-oo",
                             "--error=e",
                             "-ee",
                             "--chdir=/",
                             "-D/",
                             "--parsable",
                             "--clusters=all",
                             "-Mall",
                             "--cluster=all",
                             "--wrap=true",
                             "--wait",
                             "-W",
                             "--test-only",
                             "--open-mode=truncate",
                             "--signal=9",
                             "--requeue",
                             "--no-requeue",
                             "--help",
                             "-h",
                             "--version",
                             "-V"}) {
        EXPECT_NE(faultIn({word}), "") << word;
    }
    // sbatch takes short names together, and the start of a long one.
    for (const char* word : {"-HJx", "-vW", "--arr=0-3", "--job=x", "--out=o"}) {
        EXPECT_NE(faultIn({word}), "") << word;
    }
    EXPECT_EQ(faultIn({"--mem=8G", "-Jx"}),
              "'-Jx' cannot be given: the farm needs --job-name of sbatch as it sets it.");
}

TEST(SbatchOptions, ThatTheFarmDoesNotKnowAreHandedOn) {
    EXPECT_EQ(faultIn({}), "");
    for (const char* word :
         {"--mem=8G", "--cpus-per-task=8", "-c8", "--nodelist=n1", "--qos=low",
          "--wait-all-nodes=1", "--exclusive", "-H", "-pmain", "-wJaW", "--dependency=afterok:1",
          "-dafterok:1", "--account=a", "--nice", "--export=ALL"}) {
        EXPECT_EQ(faultIn({word}), "") << word;
    }
}

TEST(SbatchOptions, AreNoScripts) {
    EXPECT_NE(faultIn({"mem=8G"}), "");
    EXPECT_NE(faultIn({""}), "");
    EXPECT_NE(faultIn({"--mem=8G", "16G"}), "");
    EXPECT_NE(faultIn({"-c8", "8"}), "");
    EXPECT_EQ(faultIn({"--mem", "8G", "-c", "8"}), "");
}

TEST(SbatchOptions, OfDependencyAreFound) {
    const Words words = {"--mem=8G", "-d", "afterok:1", "--depend=afterok:2", "-dsingleton", "-c8"};
    EXPECT_EQ(dependencyIn(words), (Words{"-d", "afterok:1", "--depend=afterok:2", "-dsingleton"}));
    EXPECT_EQ(withoutDependency(words), (Words{"--mem=8G", "-c8"}));
    EXPECT_TRUE(dependencyIn({"--mem=8G", "-pd"}).empty());
}

}  // namespace
}  // namespace ruvex::farm
