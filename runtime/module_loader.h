// Loading the effect's module, as the host application does.

#pragma once

#include <filesystem>
#include <memory>

#include "sdk/com/com_ptr.h"
#include "sdk/com/module_instance.h"
#include "sdk/com/module_table.h"

namespace ruvex::runtime {

/// A use of a loaded module. A file is loaded once, however often it is asked for; its classes can
/// be made with CoCreateInstance as long as it is loaded. Any thread.
class Module {
public:
    /// Loads the module in that file. Throws Error when there is no such file, when it cannot be
    /// loaded, when an export is missing, or when the module refuses to be attached.
    static std::shared_ptr<Module> load(const std::filesystem::path& file);

    /// Loads the module that is registered for a class. Throws Error when there is none.
    static std::shared_ptr<Module> loadRegistered(const GUID& classId);

    /// Loads the module that belongs to the running program: V_Ruvex beside it, or in
    /// ../lib/ruvex, where an installed one is, or else the one that is registered.
    static std::shared_ptr<Module> loadDefault();

    /// Lets the module go if it allows it; one that still has objects or locks stays in memory
    /// until the process ends, for to take code away that is in use would end the process at once.
    ~Module();

    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;

    /// The same, saying so: throws Error while the module has objects or locks. Afterwards the
    /// other operations throw Error too.
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
