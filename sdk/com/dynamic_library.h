// A loaded shared library, on any system.

#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "sdk/com/export.h"
#include "sdk/com/module_instance.h"

/// A loaded module. On Windows the system calls its DllMain; elsewhere this class does.
class DSSDK_API DSDynamicLibrary {
public:
    /// Loads the file and calls its DllMain. If the system can't load it, or DllMain returns 0,
    /// returns null and stores the reason in `problem`.
    static std::unique_ptr<DSDynamicLibrary> load(const std::filesystem::path& file,
                                                  std::string& problem);

    /// Calls DllMain for the detachment and unloads the module.
    ~DSDynamicLibrary();

    DSDynamicLibrary(const DSDynamicLibrary&) = delete;
    DSDynamicLibrary& operator=(const DSDynamicLibrary&) = delete;

    /// The address of an exported symbol; null if there is none.
    void* find(const char* name) const;

    /// The handle that was passed to the module's DllMain.
    HINSTANCE instance() const;

    /// The full path of the module with this handle; empty if unknown.
    static std::filesystem::path fileOf(HINSTANCE instance);

    /// The full path of the program or library that contains this address of code or of a constant.
    /// Empty if there is none or the system can't find it.
    static std::filesystem::path fileOfCode(const void* address);

    /// The file name of a module: its name, such as "V_Ruvex", with the system's extension.
    static std::string fileName(const std::string& module);

private:
    struct State;
    explicit DSDynamicLibrary(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};
