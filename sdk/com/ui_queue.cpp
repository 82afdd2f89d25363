#include "sdk/com/ui_queue.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <stdexcept>
#include <utility>

#include "sdk/com/com_ptr.h"
#include "sdk/com/guarded.h"

// The queue's state is never destroyed before the library is unloaded, so that a thread may post
// while the DSUserInterfaceQueue is destroyed.

namespace {

struct PostedTask {
    std::uint64_t number;
    ComPtr<IDSTask> task;
};

struct TaskQueue {
    std::mutex mutex;
    std::condition_variable wakesEnded;
    bool exists = false;
    bool isAwake = false;  ///< `wake` was called since the last `run` began.
    int wakesUnderWay = 0;
    std::function<void()> wake;
    std::deque<PostedTask> tasks;
    std::uint64_t lastNumber = 0;

    /// Adds a task; true if the caller has to call `callWake`. Throws std::bad_alloc.
    bool add(IDSTask& task);
    void callWake();
    /// Removes the first task if its number is at most `last`; else null.
    ComPtr<IDSTask> takeFirst(std::uint64_t last);
};

TaskQueue& taskQueue() {
    static TaskQueue queue;
    return queue;
}

bool TaskQueue::add(IDSTask& task) {
    tasks.push_back({lastNumber + 1, &task});
    ++lastNumber;
    if (std::exchange(isAwake, true) || !wake) return false;
    ++wakesUnderWay;
    return true;
}

void TaskQueue::callWake() {
    wake();
    const std::lock_guard lock(mutex);
    if (--wakesUnderWay == 0) wakesEnded.notify_all();
}

ComPtr<IDSTask> TaskQueue::takeFirst(std::uint64_t last) {
    const std::lock_guard lock(mutex);
    if (tasks.empty() || tasks.front().number > last) return nullptr;
    ComPtr<IDSTask> taken = std::move(tasks.front().task);
    tasks.pop_front();
    return taken;
}

}  // namespace

HRESULT DSPostToUserInterface(IDSTask* task) {
    if (!task) return E_POINTER;
    TaskQueue& queue = taskQueue();
    bool wakes = false;
    const HRESULT status = ruvex::guarded([&] {
        const std::lock_guard lock(queue.mutex);
        if (!queue.exists) return S_FALSE;
        wakes = queue.add(*task);
        return S_OK;
    });
    if (wakes) queue.callWake();
    return status;
}

DSUserInterfaceQueue::DSUserInterfaceQueue(std::function<void()> wake) {
    TaskQueue& queue = taskQueue();
    const std::lock_guard lock(queue.mutex);
    if (queue.exists) throw std::logic_error("the process has a user-interface queue already");
    queue.exists = true;
    queue.isAwake = false;
    queue.wake = std::move(wake);
}

DSUserInterfaceQueue::~DSUserInterfaceQueue() {
    TaskQueue& queue = taskQueue();
    // Released after the lock, since a task's destructor may post.
    std::function<void()> wake;
    std::deque<PostedTask> left;
    std::unique_lock lock(queue.mutex);
    queue.exists = false;
    queue.wakesEnded.wait(lock, [&] { return queue.wakesUnderWay == 0; });
    wake.swap(queue.wake);
    left.swap(queue.tasks);
    lock.unlock();
}

void DSUserInterfaceQueue::run() {
    TaskQueue& queue = taskQueue();
    std::uint64_t last = 0;
    {
        const std::lock_guard lock(queue.mutex);
        queue.isAwake = false;
        last = queue.lastNumber;
    }
    while (const ComPtr<IDSTask> task = queue.takeFirst(last)) task->Run();
}
