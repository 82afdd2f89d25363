// Where the tests find their modules, and what they render.

#pragma once

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "runtime/effect_session.h"
#include "runtime/images.h"
#include "sdk/com/dynamic_library.h"

namespace ruvex::runtime::test {

inline constexpr Project kSmallProject{8, 6, 1.0, 25.0};
/// Of one of its pictures.
inline constexpr std::size_t kAllBytes = 8 * 6 * 4;

inline std::filesystem::path programFolder() {
    static constexpr char here = 0;
    return DSDynamicLibrary::fileOfCode(&here).parent_path();
}

/// A module beside the test program.
inline std::filesystem::path moduleFile(const std::string& name) {
    return programFolder() / DSDynamicLibrary::fileName(name);
}

/// Frames of one value each: frame k, at k / 25 seconds, holds k in every byte. Refuses times
/// before the first frame.
class CountingClip final : public InputProvider {
public:
    ComPtr<IDSImage> imageAt(double seconds) override {
        if (seconds < 0.0) return nullptr;
        auto image = makeProjectImage(kSmallProject, 8, 6, MFIF_RGBA_RAW_32);
        const auto frame = static_cast<int>(seconds * kSmallProject.frameRate + 0.5);
        std::fill_n(image->bytes(), image->byteCount(), static_cast<std::byte>(frame));
        return image;
    }
};

inline EffectSession::Setup copySetup(std::stop_token stop = {},
                                      const std::string& name = "copy_module") {
    EffectSession::Setup setup;
    setup.module = Module::load(moduleFile(name));
    setup.project = kSmallProject;
    setup.provider = std::make_shared<CountingClip>();
    setup.stop = std::move(stop);
    return setup;
}

/// An empty picture for a result.
inline ComPtr<CDSMemoryImage> emptyOutput() {
    return makeProjectImage(kSmallProject, 8, 6, MFIF_RGBA_RAW_32);
}

/// How many bytes of the picture hold the value.
inline std::size_t countOf(const CDSMemoryImage& image, int value) {
    return static_cast<std::size_t>(std::count(image.bytes(), image.bytes() + image.byteCount(),
                                               static_cast<std::byte>(value)));
}

}  // namespace ruvex::runtime::test
