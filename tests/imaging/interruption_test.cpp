#include "imaging/interruption.h"

#include <gtest/gtest.h>

namespace ruvex {
namespace {

struct Host {
    int calls = 0;
    std::uint32_t answer = 0;
};

std::uint32_t ask(void* context, std::atomic<std::uint32_t>* progress) {
    auto* host = static_cast<Host*>(context);
    ++host->calls;
    progress->store(77);
    return host->answer;
}

TEST(Interruption, WithoutARecordNothingStops) {
    EXPECT_FALSE(interruptCheck(nullptr));
    raiseOutOfMemory(nullptr);
}

TEST(Interruption, ANullCallbackNeverStopsByItself) {
    InterruptionRecord record;
    EXPECT_FALSE(interruptCheck(&record));
    EXPECT_FALSE(interruptCheck(&record));
    record.interrupted = 1;
    EXPECT_TRUE(interruptCheck(&record));
}

TEST(Interruption, TheCallbackGetsItsContextAndThePlaceForACode) {
    Host host;
    InterruptionRecord record;
    record.reset(&host, ask);
    EXPECT_FALSE(interruptCheck(&record));
    EXPECT_FALSE(interruptCheck(&record));
    EXPECT_EQ(host.calls, 2);
    EXPECT_EQ(record.progress, 77u);
    EXPECT_EQ(record.interrupted, 0);
}

TEST(Interruption, ANonzeroAnswerIsKeptAndTheHostIsNotAskedAgain) {
    Host host;
    InterruptionRecord record;
    record.reset(&host, ask);
    host.answer = 5;
    EXPECT_TRUE(interruptCheck(&record));
    EXPECT_EQ(record.interrupted, 5);
    host.answer = 0;
    EXPECT_TRUE(interruptCheck(&record));
    EXPECT_EQ(host.calls, 1);
}

TEST(Interruption, AnAnswerWithTheTopBitAloneStops) {
    Host host;
    host.answer = 0x80000000u;
    InterruptionRecord record;
    record.reset(&host, ask);
    EXPECT_TRUE(interruptCheck(&record));
    EXPECT_EQ(record.interrupted, INT32_MIN);
}

TEST(Interruption, AnAnswerOfNoughtDoesNotTakeBackAStopThatCameMeanwhile) {
    InterruptionRecord record;
    record.reset(&record, [](void* context, std::atomic<std::uint32_t>*) {
        static_cast<InterruptionRecord*>(context)->interrupted = 3;
        return 0u;
    });
    EXPECT_TRUE(interruptCheck(&record));
    EXPECT_EQ(record.interrupted, 3);
}

TEST(Interruption, RunningOutOfMemoryStopsWithItsCode) {
    InterruptionRecord record;
    raiseOutOfMemory(&record);
    EXPECT_EQ(record.interrupted, 1);
    EXPECT_EQ(record.progress, 1000u);
    EXPECT_TRUE(interruptCheck(&record));
}

TEST(Interruption, RunningOutOfMemoryMayBeNotedWithoutAStop) {
    InterruptionRecord record;
    noteOutOfMemory(&record);
    EXPECT_EQ(record.progress, kOutOfMemoryCode);
    EXPECT_FALSE(interruptCheck(&record));
    noteOutOfMemory(nullptr);
}

TEST(Interruption, ResetStartsANewFrame) {
    InterruptionRecord record;
    raiseOutOfMemory(&record);
    record.reset(nullptr, nullptr);
    EXPECT_EQ(record.interrupted, 0);
    EXPECT_EQ(record.progress, 0u);
    EXPECT_FALSE(interruptCheck(&record));
}

}  // namespace
}  // namespace ruvex
