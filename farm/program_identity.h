// Which program renders, and on which machine.

#pragma once

#include <string>

namespace ruvex::farm {

/// Programs of equal identities make the same bytes.
struct ProgramIdentity {
    std::string version;    ///< "0.1.0".
    std::string build;      ///< 16 hexadecimal digits of a digest of its files.
    std::string libraries;  ///< The version of the FFmpeg libraries, which code its results.

    friend bool operator==(const ProgramIdentity&, const ProgramIdentity&) = default;
};

/// Of the running program: its own file, the module's and the libraries' beside the module. Reads
/// them at the first call. Throws runtime::Error without a module.
const ProgramIdentity& runningProgram();

/// "0.1.0 (build 0123456789abcdef, FFmpeg 5.1.6)".
std::string toText(const ProgramIdentity& program);

/// The name of this machine, as the scheduler has it or else in its network.
std::string hostName();

}  // namespace ruvex::farm
