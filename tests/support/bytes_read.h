// What this process has read from files.

#pragma once

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>

namespace ruvex {

/// Bytes so far, those of ended child processes too; empty where the system does not count them.
inline std::optional<std::int64_t> bytesRead() {
    std::ifstream counts("/proc/self/io");
    for (std::string name; counts >> name;) {
        std::int64_t number = 0;
        counts >> number;
        if (name == "rchar:") return number;
    }
    return std::nullopt;
}

}  // namespace ruvex
