// Tasks that other threads hand to the host's user-interface thread.

#pragma once

#include <functional>

#include "sdk/com/interface_traits.h"

struct IDSTask : IUnknown {
    virtual void Run() = 0;

protected:
    ~IDSTask() = default;
};

inline constexpr GUID IID_IDSTask = ruvex::guidFromText("3C0B7A51-6D2E-4F0B-9A77-52D1C4E08A23");
template <>
struct DSInterfaceTraits<IDSTask> : DSInterface<IID_IDSTask> {};

/// Keeps a reference to `task` and runs it later on the user-interface thread, after the tasks that
/// were posted before it. May be called from any thread. S_FALSE, and the task is not kept, in a
/// host without a queue; E_POINTER for null; E_OUTOFMEMORY.
DSSDK_API HRESULT DSPostToUserInterface(IDSTask* task);

/// For hosts: the process's queue, as long as it lives. Created, used and destroyed on the
/// user-interface thread. Only one may exist at a time; the constructor of a second one throws
/// std::logic_error. A task may destroy the queue; the tasks behind it are then released.
class DSSDK_API DSUserInterfaceQueue {
public:
    /// `wake` is called on the posting thread when the first task has been posted after the queue
    /// was made or `run` has begun; the host then calls `run` soon. It must not throw, destroy the
    /// queue, or wait for the user-interface thread: the destructor waits for it.
    explicit DSUserInterfaceQueue(std::function<void()> wake = {});
    /// Releases the tasks that were not run.
    ~DSUserInterfaceQueue();
    DSUserInterfaceQueue(const DSUserInterfaceQueue&) = delete;
    DSUserInterfaceQueue& operator=(const DSUserInterfaceQueue&) = delete;

    /// Runs the tasks that were posted before the call, in order, and releases each after it has
    /// run. A task may post others, which wait for the next call, and may call `run`.
    void run();
};
