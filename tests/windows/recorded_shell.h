// Records the files that a module asks the shell to open.

#pragma once

#include <string>
#include <vector>

#include "sdk/window/window.h"

namespace ruvex::test {

/// As long as it lives, the module's calls of ShellExecuteW go here: its import table is changed.
/// One at a time.
class RecordedShell {
public:
    /// `module` is the file name of a loaded module.
    explicit RecordedShell(const wchar_t* module);
    RecordedShell(const RecordedShell&) = delete;
    RecordedShell& operator=(const RecordedShell&) = delete;
    ~RecordedShell();

    /// Whether the module imports the function.
    bool works() const { return import_ != nullptr; }

    std::vector<std::wstring> files;

private:
    void replace(void* function);

    void** import_ = nullptr;
    void* before_ = nullptr;
};

}  // namespace ruvex::test
