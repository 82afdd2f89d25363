// A file with plug-ins, loaded as hosts load it.

#pragma once

#include <filesystem>
#include <memory>

#include "adapters/openfx/ofx_api.h"

namespace ruvex::ofxhost {

/// A loaded .ofx file. On Windows it is loaded by its path alone, so that the system does not
/// search the file's own folder for the libraries that it needs.
class Binary {
public:
    /// The file itself, or the folder of a bundle, in which the file for this system is taken.
    /// Throws std::runtime_error if there is none, if it cannot be loaded, or if it lacks the two
    /// functions of the interface.
    explicit Binary(const std::filesystem::path& fileOrBundle);
    ~Binary();
    Binary(const Binary&) = delete;
    Binary& operator=(const Binary&) = delete;

    int count() const { return count_(); }
    /// Null beyond the count.
    OfxPlugin* plugIn(int index) const { return get_(index); }
    const std::filesystem::path& file() const { return file_; }

private:
    struct Library;

    std::filesystem::path file_;
    std::unique_ptr<Library> library_;
    int (*count_)() = nullptr;
    OfxPlugin* (*get_)(int) = nullptr;
};

}  // namespace ruvex::ofxhost
