#include "imaging/threads.h"

#include <atomic>
#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

#include "tests/imaging/support/workers.h"

namespace ruvex {
namespace {

using test::Workers;
using testing::ElementsAre;

// What each run of a job saw.
struct Log {
    std::mutex lock;
    std::multiset<std::int32_t> indices;
    std::set<std::thread::id> threads;
    std::int32_t callerIndex = -1;
};

void note(Log* log, std::thread::id* caller) {
    const std::lock_guard guard(log->lock);
    log->indices.insert(workerIndex());
    log->threads.insert(std::this_thread::get_id());
    if (std::this_thread::get_id() == *caller) log->callerIndex = workerIndex();
}

void noteOnAllThreads(Log& log) {
    std::thread::id caller = std::this_thread::get_id();
    runOnAllThreads(note, &log, &caller);
}

TEST(Threads, WithFourWorkersAJobRunsFourTimesOnceOnTheCaller) {
    const Workers workers(4);
    Log log;
    noteOnAllThreads(log);
    EXPECT_THAT(log.indices, ElementsAre(0, 1, 2, 3));
    EXPECT_EQ(log.threads.size(), 4u);
    EXPECT_EQ(log.callerIndex, 0);
    EXPECT_EQ(workerCount(), 4);
    EXPECT_EQ(workerIndex(), 0) << "outside a fork";
}

TEST(Threads, OneWorkerStartsNoThread) {
    const Workers workers(1);
    Log log;
    noteOnAllThreads(log);
    EXPECT_THAT(log.indices, ElementsAre(0));
    EXPECT_THAT(log.threads, ElementsAre(std::this_thread::get_id()));
    EXPECT_EQ(workerCount(), 1);
}

TEST(Threads, EveryCountGivesEachIndexOnce) {
    for (std::int32_t count = 2; count <= 9; ++count) {
        const Workers workers(count);
        Log log;
        noteOnAllThreads(log);
        std::multiset<std::int32_t> wanted;
        for (std::int32_t i = 0; i < count; ++i) wanted.insert(i);
        EXPECT_EQ(log.indices, wanted);
    }
}

TEST(Threads, ACountBelowOneIsTheMachinesProcessors) {
    const std::int32_t processors = workerCount();
    EXPECT_GE(processors, 1);
    const Workers workers(processors + 3);
    EXPECT_EQ(workerCount(), processors + 3);
    for (const std::int32_t count : {0, -1, INT32_MIN}) {
        const Workers all(count);
        EXPECT_EQ(workerCount(), processors) << count;
    }
}

TEST(Threads, TheCountBeforeAScopeHoldsAgainAfterIt) {
    const std::int32_t before = workerCount();
    {
        const Workers outer(3);
        {
            const Workers inner(5);
            EXPECT_EQ(workerCount(), 5);
        }
        EXPECT_EQ(workerCount(), 3);
    }
    EXPECT_EQ(workerCount(), before);
}

TEST(Threads, OtherThreadsKeepTheirCount) {
    const std::int32_t processors = workerCount();
    const Workers workers(processors + 3);
    std::int32_t seen = 0;
    std::thread([&seen] { seen = workerCount(); }).join();
    EXPECT_EQ(seen, processors);
}

TEST(Threads, EveryWorkerKnowsTheCountOfItsFork) {
    const Workers workers(6);
    std::atomic<int> agreeing{0};
    runOnAllThreads([](std::atomic<int>* count) { *count += workerCount() == 6; }, &agreeing);
    EXPECT_EQ(agreeing, 6);
}

// Two renders with counts of their own, pass by pass in turn.
TEST(Threads, ForksOfDifferentCountsDoNotMix) {
    const auto render = [](std::int32_t count) {
        const Workers workers(count);
        for (int pass = 0; pass < 100; ++pass) {
            Log log;
            noteOnAllThreads(log);
            std::atomic<int> agreeing{0};
            runOnAllThreads([](std::atomic<int>* sum,
                               std::int32_t* wanted) { *sum += workerCount() == *wanted; },
                            &agreeing, &count);
            ASSERT_EQ(agreeing, count);
            ASSERT_EQ(log.indices.size(), static_cast<std::size_t>(count));
            ASSERT_EQ(*log.indices.rbegin(), count - 1);
        }
    };
    std::thread other(render, 5);
    render(3);
    other.join();
}

TEST(Threads, DisabledThreadingRunsOnTheCallerAlone) {
    const Workers workers(4);
    setThreadingEnabled(false);
    EXPECT_EQ(workerCount(), 1);
    Log log;
    noteOnAllThreads(log);
    setThreadingEnabled(true);
    EXPECT_THAT(log.indices, ElementsAre(0));
    EXPECT_EQ(workerCount(), 4);
}

TEST(Threads, AThreadOfNoForkHasIndexNoughtWhileAForkRuns) {
    const Workers workers(3);
    std::atomic<std::int32_t> seen{-1};
    runOnAllThreads(
        [](std::atomic<std::int32_t>* result) {
            if (workerIndex() != 2) return;
            std::thread([result] { *result = workerIndex(); }).join();
        },
        &seen);
    EXPECT_EQ(seen, 0);
}

TEST(Threads, ArgumentsReachEveryWorkerInOrder) {
    const Workers workers(2);
    std::atomic<int> good{0};
    int a = 1, b = 2, c = 3;
    runOnAllThreads(
        [](std::atomic<int>* count, int* first, int* second, int* third) {
            if (*first == 1 && *second == 2 && *third == 3) ++*count;
        },
        &good, &a, &b, &c);
    EXPECT_EQ(good, 2);
}

TEST(Threads, WhatWorkersWroteIsThereAfterTheFork) {
    const Workers workers(8);
    std::vector<int> written(8);
    for (int pass = 1; pass <= 20; ++pass) {
        runOnAllThreads(
            [](std::vector<int>* cells) { ++(*cells)[static_cast<std::size_t>(workerIndex())]; },
            &written);
        EXPECT_THAT(written, testing::Each(pass));
    }
}

// Jobs of one fork stay until all of its workers are in; a job that then finds a worker of
// another fork beside it has caught two forks at once.
struct Meeting {
    std::atomic<int> present{0};
    std::atomic<int> most{0};
};

void meet(Meeting* everyone, std::atomic<int>* ownFork) {
    const int now = ++everyone->present;
    if (now > everyone->most) everyone->most = now;
    ++*ownFork;
    while (*ownFork < 3) std::this_thread::yield();
    --everyone->present;
}

TEST(Threads, ForksOfDifferentCallersTakeTurns) {
    Meeting meeting;
    const auto render = [&meeting] {
        const Workers workers(3);
        for (int i = 0; i < 50; ++i) {
            std::atomic<int> ownFork{0};
            runOnAllThreads(meet, &meeting, &ownFork);
        }
    };
    std::thread other(render);
    render();
    other.join();
    EXPECT_EQ(meeting.most, 3);
    EXPECT_EQ(meeting.present, 0);
}

TEST(RowShares, TenRowsOnFourWorkers) {
    const auto expectShare = [](std::int32_t worker, std::int32_t first, std::int32_t end) {
        const RowShare share = shareOfRows(10, 4, worker);
        EXPECT_EQ(share.first, first);
        EXPECT_EQ(share.end, end);
    };
    expectShare(0, 0, 3);
    expectShare(1, 3, 6);
    expectShare(2, 6, 9);
    expectShare(3, 9, 10);
}

TEST(RowShares, OneRowOnFourWorkersGoesToTheFirst) {
    EXPECT_EQ(shareOfRows(1, 4, 0).first, 0);
    EXPECT_EQ(shareOfRows(1, 4, 0).end, 1);
    for (std::int32_t worker = 1; worker < 4; ++worker) {
        const RowShare share = shareOfRows(1, 4, worker);
        EXPECT_GE(share.first, share.end);
    }
}

TEST(RowShares, EveryRowBelongsToExactlyOneWorker) {
    for (std::int32_t workers = 1; workers <= 17; ++workers) {
        for (std::int32_t rows = 0; rows <= 40; ++rows) {
            std::vector<int> owners(static_cast<std::size_t>(rows));
            for (std::int32_t worker = 0; worker < workers; ++worker) {
                const RowShare share = shareOfRows(rows, workers, worker);
                for (std::int32_t row = share.first; row < share.end; ++row) {
                    ++owners.at(static_cast<std::size_t>(row));
                }
            }
            EXPECT_THAT(owners, testing::Each(1)) << rows << " rows, " << workers << " workers";
        }
    }
}

TEST(RowShares, ANegativeHeightIsNothingToDoForAnyWorker) {
    for (const std::int32_t rows : {-1, -5, -1000, INT32_MIN}) {
        for (std::int32_t worker = 0; worker < 5; ++worker) {
            const RowShare share = shareOfRows(rows, 5, worker);
            EXPECT_GE(share.first, share.end);
        }
    }
}

TEST(RowShares, WithoutAWorkerTheShareIsTheWhole) {
    EXPECT_EQ(shareOfRows(10, 4, -1).end, 10);
    EXPECT_EQ(shareOfRows(10, 0, 0).end, 10);
}

}  // namespace
}  // namespace ruvex
