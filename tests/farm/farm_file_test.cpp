#include "farm/farm_file.h"

#include <gtest/gtest.h>

#include "farm/farm_error.h"
#include "tests/farm/sample_job.h"

namespace ruvex::farm {
namespace {

std::string complaintAbout(const std::string& text) {
    try {
        parseFarm("farm.json", text);
        return "";
    } catch (const FarmError& error) {
        return error.what();
    }
}

std::string replaced(std::string text, const std::string& part, const std::string& by) {
    const auto at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return at == std::string::npos ? text : text.replace(at, part.size(), by);
}

TEST(FarmFile, HoldsAllOfAJob) {
    EXPECT_EQ(parseFarm("farm.json", farmText(sampleJob())), sampleJob());
    FarmJob plain = sampleJob();
    plain.scheduler = {};
    plain.keepChunks = false;
    EXPECT_EQ(parseFarm("farm.json", farmText(plain)), plain);
}

TEST(FarmFile, OfOtherContentsIsRefused) {
    const std::string text = farmText(sampleJob());
    EXPECT_EQ(complaintAbout(text), "");
    EXPECT_NE(complaintAbout("nothing"), "");
    EXPECT_NE(complaintAbout("{}"), "");
    EXPECT_NE(complaintAbout("[]"), "");
    EXPECT_NE(complaintAbout(text.substr(0, text.size() / 2)), "");
    EXPECT_NE(complaintAbout(replaced(text, "\"ruvexFarm\": 1", "\"ruvexFarm\": 2"))
                  .find("another version"),
              std::string::npos);
    EXPECT_NE(complaintAbout(replaced(text, "\"chunkFrames\": 10", "\"chunkFrames\": 0")), "");
    EXPECT_NE(complaintAbout(replaced(text, "\"arrayLength\": 1000", "\"arrayLength\": 0")), "");
    EXPECT_NE(complaintAbout(replaced(text, "\"firstChunk\": 3", "\"firstChunk\": 4")), "");
    EXPECT_NE(complaintAbout(replaced(text, "\"lastFrame\": 29", "\"lastFrame\": 4")), "");
    EXPECT_NE(complaintAbout(replaced(text, "\"lastFrame\": 29", "\"lastFrame\": \"x\"")), "");
}

TEST(FarmJob, CountsChunks) {
    const FarmJob job = sampleJob();
    EXPECT_EQ(chunksOf(job, job.clips[0]), 3);
    EXPECT_EQ(chunksOf(job, job.clips[1]), 1);
    EXPECT_EQ(chunksOf(job), 4);
}

}  // namespace
}  // namespace ruvex::farm
