// Loading the effect's module, as the host application does.

#pragma once

#include <filesystem>
#include <memory>

#include "sdk/com/com_ptr.h"
#include "sdk/com/module_instance.h"
#include "sdk/com/module_table.h"

namespace ruvex::runtime {

/// A reference to a loaded module. A file is loaded once, however many references there are;
/// CoCreateInstance finds its classes as long as it is loaded. Any thread.
class Module {
public:
    /// Loads the module in that file. Throws Error when there is no such file, when it cannot be
    /// loaded, when an export is missing, or when its DllMain returns 0.
    static std::shared_ptr<Module> load(const std::filesystem::path& file);

    /// Loads the module that is registered for a class. Throws Error when there is none.
    static std::shared_ptr<Module> loadRegistered(const GUID& classId);

    /// Loads the module that belongs to the program or library which holds this address, of code or
    /// of a constant: V_Ruvex in the same folder, or in an installation, which is ../lib/ruvex for
    /// a program in bin/ and ../ruvex for a plug-in in a folder of lib/, or else the registered
    /// one. Throws Error, naming these places, when there is none.
    static std::shared_ptr<Module> loadBeside(const void* code);

    /// The same for the program or library that this function is linked into: a plug-in finds the
    /// module beside itself, not beside the application that loaded it.
    static std::shared_ptr<Module> loadDefault();

    /// Unloads the module unless it still has objects or locks: such a module stays in memory until
    /// the process ends or it is loaded again, since its code is in use.
    ~Module();

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    /// Unloads the module at once; throws Error, changing nothing, while it has objects or locks.
    /// Afterwards the other operations throw Error too.
    void unload();
    bool loaded() const;

    /// The module's class factory for a class. Throws StatusError.
    ComPtr<IClassFactory> classFactory(const GUID& classId) const;

    /// Enters the module's classes in the registry, and removes them. Both throw StatusError.
    void registerClasses() const;
    void unregisterClasses() const;

    /// What DllCanUnloadNow answers: true when nothing of the module is in use.
    bool canUnload() const;

    HINSTANCE instance() const;
    const std::filesystem::path& file() const;

private:
    struct Library;
    struct Table;

    Module() = default;
    const Library& library() const;

    Library* library_ = nullptr;
};

}  // namespace ruvex::runtime
