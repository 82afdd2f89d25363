// A copy of the registered module in a folder of its own.

#pragma once

#include <filesystem>

namespace ruvex::test {

/// The destructor removes the folder. The host's libraries are not copied: the process has them.
class ModuleCopy {
public:
    /// Copies `module` under the same name.
    explicit ModuleCopy(const std::filesystem::path& module);
    ModuleCopy(const ModuleCopy&) = delete;
    ModuleCopy& operator=(const ModuleCopy&) = delete;
    ~ModuleCopy();

    const std::filesystem::path& file() const { return file_; }

private:
    std::filesystem::path file_;
};

/// The file of the module that is registered for the effect. Throws std::runtime_error.
std::filesystem::path registeredModule();

/// Registers the module at the end of its life, whatever has happened meanwhile.
class RegisteredInTheEnd {
public:
    explicit RegisteredInTheEnd(std::filesystem::path module) : module_(std::move(module)) {}
    RegisteredInTheEnd(const RegisteredInTheEnd&) = delete;
    RegisteredInTheEnd& operator=(const RegisteredInTheEnd&) = delete;
    ~RegisteredInTheEnd();

private:
    std::filesystem::path module_;
};

/// Calls an export of the module, such as "DllRegisterServer", as an installer does: the module is
/// loaded, called and unloaded. Gives the call's status, and the system's error where a step before
/// it fails.
long callModule(const std::filesystem::path& file, const char* function);

}  // namespace ruvex::test
