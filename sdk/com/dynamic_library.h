// A module's file in memory, on any system.

#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "sdk/com/export.h"
#include "sdk/com/module_instance.h"

/// A loaded file. DllMain has been called: by the system where it does that, otherwise by this
/// class.
class DSSDK_API DSDynamicLibrary {
public:
    /// Loads the file and attaches it. Null with the reason in `problem` when the system cannot
    /// load it or its DllMain answers 0.
    static std::unique_ptr<DSDynamicLibrary> load(const std::filesystem::path& file,
                                                  std::string& problem);

    /// Detaches the module and takes it out of memory.
    ~DSDynamicLibrary();

    DSDynamicLibrary(const DSDynamicLibrary&) = delete;
    DSDynamicLibrary& operator=(const DSDynamicLibrary&) = delete;

    /// The address of an exported name; null without one.
    void* find(const char* name) const;

    /// The handle that the module's DllMain was given.
    HINSTANCE instance() const;

    /// The full path of the file that a handle stands for; empty when it is not known.
    static std::filesystem::path fileOf(HINSTANCE instance);

    /// The full path of the program or library that holds this address, of code or of a constant;
    /// empty when there is none or the system does not tell.
    static std::filesystem::path fileOfCode(const void* address);

    /// The file name of a module: "V_Ruvex" with the system's ending.
    static std::string fileName(const std::string& module);

private:
    struct State;
    explicit DSDynamicLibrary(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};
