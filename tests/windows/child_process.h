// More processes of this program, and events by which they wait for each other.

#pragma once

#include <string>
#include <windows.h>

namespace ruvex::test {

/// An event that processes share by its name. Once set it stays so.
class SharedEvent {
public:
    explicit SharedEvent(const std::wstring& name);
    SharedEvent(const SharedEvent&) = delete;
    SharedEvent& operator=(const SharedEvent&) = delete;
    ~SharedEvent();

    void set() const { SetEvent(event_); }
    bool isSet() const { return waits(0); }
    /// False if it is not set within 20 seconds.
    bool wait() const { return waits(20'000); }

private:
    bool waits(DWORD milliseconds) const;

    HANDLE event_;
};

/// A process of this program. The destructor ends one that still runs.
class ChildProcess {
public:
    explicit ChildProcess(const std::wstring& arguments);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    void terminate(UINT status) const { TerminateProcess(process_, status); }
    /// True if the process ends within 20 seconds, with this status.
    bool endsWith(DWORD status) const;

private:
    HANDLE process_ = nullptr;
};

/// Sets the event when this process crashes, even while it ends.
void reportCrashes(const SharedEvent& crashed);

}  // namespace ruvex::test
