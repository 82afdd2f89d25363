// The effect's manual.

#pragma once

#include <cstddef>
#include <string>

namespace ruvex {

/// Has the system open the manual. Throws nothing; failures and a missing document are not
/// reported.
void OpenManual();

/// Text of one registry key, for `programFilesFolder`.
class RegistryText {
public:
    virtual bool open() = 0;
    /// Reads the value "ProgramFilesDir" into a buffer of `bytes` bytes, terminated by a zero.
    /// False if there is none or it does not fit.
    virtual bool read(wchar_t* buffer, std::size_t bytes) = 0;
    virtual void close() = 0;

protected:
    ~RegistryText() = default;
};

/// The folder of installed programs: a text of less than 260 bytes, for which the registry is asked
/// twice, or "C:Program Files", without a backslash.
std::wstring programFilesFolder(RegistryText& registry);

/// Where the installer puts the manual below the folder of installed programs.
std::wstring installedManual(const std::wstring& programFiles);

}  // namespace ruvex
