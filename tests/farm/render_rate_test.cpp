#include "farm/render_rate.h"

#include <gtest/gtest.h>

namespace ruvex::farm {
namespace {

/// A chunk of 100 frames that took `seconds`, and ended at `finished`.
DoneRecord chunk(double finished, double seconds) {
    return {.frames = {0, 99}, .seconds = seconds, .finished = finished};
}

double rate(const std::vector<DoneRecord>& records, std::optional<std::int64_t> running = {}) {
    std::vector<const DoneRecord*> pointers;
    for (const DoneRecord& record : records) pointers.push_back(&record);
    return framesPerSecond(pointers, running);
}

/// Each of the machines renders this many chunks, one after the other; the first chunk of machine i
/// begins `apart` * i seconds after the start.
std::vector<DoneRecord> work(int machines, int chunks, double seconds, double apart,
                             double start = 0.0) {
    std::vector<DoneRecord> records;
    for (int i = 0; i < machines; ++i) {
        for (int k = 1; k <= chunks; ++k) {
            records.push_back(chunk(start + apart * i + seconds * k, seconds));
        }
    }
    return records;
}

TEST(RenderRate, IsThatOfATaskForEachThatRuns) {
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10), chunk(50, 40)}, 3), 3 * 200.0 / 50.0);
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10)}, 0), 0.0);
    EXPECT_DOUBLE_EQ(rate({}, 5), 0.0);
    // A thousand machines that began together, after chunks of ten seconds take twenty.
    auto records = work(1000, 3, 10.0, 0.001);
    for (const DoneRecord& record : work(64, 1, 20.0, 0.0, 100.0)) records.push_back(record);
    EXPECT_DOUBLE_EQ(rate(records, 1000), 5000.0);
    // So long as nothing of the present speed is done, that of the past counts; a pause does not.
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10), chunk(90000, 10)}, 2), 20.0);
}

TEST(RenderRate, WithoutAQueueIsThatBetweenTheFirstAndTheLastEnd) {
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10), chunk(20, 10), chunk(30, 10)}), 10.0);
    // Half of the second one is rendered before the first one ends.
    EXPECT_DOUBLE_EQ(rate({chunk(15, 10), chunk(10, 10)}), 10.0);
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10), chunk(15, 10), chunk(20, 10)}), 15.0);
    EXPECT_DOUBLE_EQ(rate({}), 0.0);
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10)}), 0.0);
    EXPECT_DOUBLE_EQ(rate({chunk(10, 10), chunk(10, 10)}), 0.0);
}

TEST(RenderRate, WithoutAQueueIsRightForManyMachines) {
    // A thousand machines make ten frames a second each. The first ends within the first ten
    // seconds count in part, so that as much as half a chunk a machine is missing.
    const double together = rate(work(1000, 20, 10.0, 0.0));
    EXPECT_DOUBLE_EQ(together, 10000.0);
    const double spread = rate(work(1000, 20, 10.0, 0.01));
    EXPECT_GT(spread, 9700.0);
    EXPECT_LT(spread, 10000.0);
}

TEST(RenderRate, WithoutAQueueForgetsWhatWasBeforeAPause) {
    auto records = work(1, 3, 10.0, 0.0);
    for (const DoneRecord& record : work(1, 3, 10.0, 0.0, 50000.0)) records.push_back(record);
    EXPECT_DOUBLE_EQ(rate(records), 10.0);
    // Chunks of an hour: the last four hours.
    EXPECT_DOUBLE_EQ(rate(work(2, 9, 3600.0, 0.0)), 2 * 100.0 / 3600.0);
}

}  // namespace
}  // namespace ruvex::farm
