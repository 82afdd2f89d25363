// A user's folder of looks for one test.

#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "tests/support/temp_folder.h"

namespace ruvex::cli {

/// While it lives, commands take the user's looks from its folder, which is empty at first.
class OwnLooks {
public:
    OwnLooks() {
        if (const char* before = std::getenv(kVariable)) before_ = before;
        std::filesystem::create_directories(folder());
        setenv(kVariable, data_.path().c_str(), 1);
    }
    ~OwnLooks() { before_ ? setenv(kVariable, before_->c_str(), 1) : unsetenv(kVariable); }
    OwnLooks(const OwnLooks&) = delete;
    OwnLooks& operator=(const OwnLooks&) = delete;

    std::filesystem::path folder() const { return data_.file("ruvex") / "looks"; }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(folder() / name) << text;
    }

private:
    static constexpr const char* kVariable = "XDG_DATA_HOME";
    files::TempFolder data_;
    std::optional<std::string> before_;
};

}  // namespace ruvex::cli
