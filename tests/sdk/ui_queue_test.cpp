#include "sdk/com/ui_queue.h"

#include <atomic>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include "sdk/com/com_object.h"
#include "sdk/com/com_ptr.h"

namespace ruvex::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TestTask final : public ComObject<IDSTask> {
public:
    static inline std::atomic<int> alive = 0;
    static inline std::atomic<int> runs = 0;

    explicit TestTask(std::function<void()> action = {}) : action_(std::move(action)) { ++alive; }

    void Run() override {
        ++runs;
        if (action_) action_();
    }

    std::function<void()> inDestructor;

private:
    ~TestTask() override {
        if (inDestructor) inDestructor();
        --alive;
    }

    std::function<void()> action_;
};

ComPtr<TestTask> makeTask(std::function<void()> action = {}) {
    return ComPtr<TestTask>::attach(new TestTask(std::move(action)));
}

HRESULT post(std::function<void()> action = {}) {
    return DSPostToUserInterface(makeTask(std::move(action)).get());
}

class UserInterfaceQueue : public testing::Test {
protected:
    ~UserInterfaceQueue() override { EXPECT_EQ(TestTask::alive, 0); }

    std::function<void()> note(int number) {
        return [this, number] { order.push_back(number); };
    }

    std::vector<int> order;
};

TEST_F(UserInterfaceQueue, IsNotInEveryHost) {
    EXPECT_EQ(post(), S_FALSE);
    EXPECT_EQ(TestTask::alive, 0) << "it is not kept";
    EXPECT_EQ(DSPostToUserInterface(nullptr), E_POINTER);
    { const DSUserInterfaceQueue queue; }
    EXPECT_EQ(post(), S_FALSE) << "it is gone";
}

TEST_F(UserInterfaceQueue, RunsTasksInTheirOrderAndReleasesEach) {
    DSUserInterfaceQueue queue;
    EXPECT_EQ(DSPostToUserInterface(nullptr), E_POINTER);
    EXPECT_EQ(post(note(1)), S_OK);
    EXPECT_EQ(post([&] {
                  note(2)();
                  EXPECT_EQ(TestTask::alive, 2) << "the first one is released";
              }),
              S_OK);
    EXPECT_EQ(post(note(3)), S_OK);
    EXPECT_THAT(order, IsEmpty());
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
    EXPECT_EQ(TestTask::alive, 0);
    queue.run();
    EXPECT_EQ(order.size(), 3u);
}

TEST_F(UserInterfaceQueue, OnlyOneExists) {
    DSUserInterfaceQueue queue;
    EXPECT_THROW(DSUserInterfaceQueue(), std::logic_error);
    post(note(1));
    queue.run();
    EXPECT_THAT(order, ElementsAre(1)) << "the first one goes on";
}

TEST_F(UserInterfaceQueue, WakesTheHostOncePerRun) {
    int wakes = 0;
    DSUserInterfaceQueue queue([&] { ++wakes; });
    post();
    post();
    EXPECT_EQ(wakes, 1);
    queue.run();
    EXPECT_EQ(wakes, 1);
    post();
    EXPECT_EQ(wakes, 2);
    queue.run();
    queue.run();
    EXPECT_EQ(wakes, 2);
}

TEST_F(UserInterfaceQueue, TasksOfTasksWaitAndWakeTheHost) {
    int wakes = 0;
    DSUserInterfaceQueue queue([&] { ++wakes; });
    post([&] {
        note(1)();
        post(note(3));
    });
    post(note(2));
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2));
    EXPECT_EQ(wakes, 2);
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST_F(UserInterfaceQueue, ARunInsideATaskKeepsTheOrder) {
    DSUserInterfaceQueue queue;
    post([&] {
        note(1)();
        post(note(3));
        queue.run();
        note(4)();
        post(note(5));
    });
    post(note(2));
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2, 3, 4));
    queue.run();
    EXPECT_THAT(order, ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(UserInterfaceQueue, ReleasesWhatItDoesNotRun) {
    {
        DSUserInterfaceQueue queue;
        const auto task = makeTask(note(1));
        task->inDestructor = [&] { order.push_back(post() == S_FALSE ? 0 : -1); };
        DSPostToUserInterface(task.get());
        post(note(2));
    }
    EXPECT_THAT(order, ElementsAre(0)) << "a task that is posted by a destructor is too late";
}

TEST_F(UserInterfaceQueue, MayBeDestroyedByATask) {
    auto queue = std::make_unique<DSUserInterfaceQueue>();
    post([&] { queue.reset(); });
    post(note(2));
    queue->run();
    EXPECT_THAT(order, IsEmpty());
    EXPECT_EQ(TestTask::alive, 0);
    EXPECT_EQ(post(), S_FALSE);
}

TEST_F(UserInterfaceQueue, ANewOneStartsEmpty) {
    {
        DSUserInterfaceQueue first;
        post(note(1));
    }
    int wakes = 0;
    DSUserInterfaceQueue second([&] { ++wakes; });
    second.run();
    EXPECT_THAT(order, IsEmpty());
    post(note(2));
    second.run();
    EXPECT_EQ(wakes, 1);
    EXPECT_THAT(order, ElementsAre(2));
}

/// Posts from several threads as long as it lives, and counts what was accepted.
class Posters {
public:
    Posters() {
        for (int i = 0; i < 3; ++i) {
            threads_.emplace_back([this](const std::stop_token& stop) {
                while (!stop.stop_requested()) postOne();
            });
        }
    }
    /// The number of tasks that were accepted.
    int stop() {
        threads_.clear();
        return accepted_;
    }

private:
    void postOne() {
        // Not faster than the tasks are run.
        if (TestTask::alive > 50) return std::this_thread::yield();
        accepted_ += post() == S_OK;
    }

    std::atomic<int> accepted_ = 0;
    std::vector<std::jthread> threads_;
};

TEST_F(UserInterfaceQueue, RunsAllTasksOfOtherThreads) {
    TestTask::runs = 0;
    std::atomic<int> wakes = 0;
    DSUserInterfaceQueue queue([&] { ++wakes; });
    Posters posters;
    for (int i = 0; i < 200; ++i) {
        while (wakes == 0) std::this_thread::yield();
        wakes = 0;
        queue.run();
    }
    const int accepted = posters.stop();
    queue.run();
    EXPECT_EQ(TestTask::runs, accepted);
    EXPECT_GE(accepted, 200) << "each wake has a task";
}

TEST_F(UserInterfaceQueue, IsDestroyedWhileOthersPost) {
    TestTask::runs = 0;
    Posters posters;
    int runs = 0;
    for (int i = 0; i < 300; ++i) {
        // The queue's wake uses this until the queue is destroyed.
        const auto wakes = std::make_unique<std::atomic<int>>(0);
        DSUserInterfaceQueue queue([&wakes = *wakes] { ++wakes; });
        while (i % 2 == 0 && *wakes == 0) std::this_thread::yield();
        queue.run();
        runs += i % 2 == 0;
    }
    const int accepted = posters.stop();
    EXPECT_GE(accepted, runs);
    EXPECT_LE(TestTask::runs, accepted);
    EXPECT_GE(TestTask::runs, runs);
}

}  // namespace
}  // namespace ruvex::test
