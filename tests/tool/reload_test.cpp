// The module is loaded and unloaded again and again, with its controls drawn in between.

#include <fstream>
#include <gtest/gtest.h>
#include <string>

#include "host/base/class_ids.h"
#include "runtime/editor.h"
#include "runtime/headless_surface.h"
#include "runtime/viewer.h"

namespace ruvex::test {
namespace {

#ifdef RUVEX_SANITIZED
constexpr int kRounds = 200;
#else
constexpr int kRounds = 1000;
#endif
constexpr int kSize = 16;

bool isBlank(const runtime::HeadlessSurface& surface) {
    for (const std::uint8_t value : surface.pixels()) {
        if (value != 0) return false;
    }
    return true;
}

/// Loads the module, draws the crop box and unloads it.
void runOnce(runtime::HeadlessSurface& surface) {
    surface.clear(0, 0, 0, 0);
    const auto module = runtime::Module::load(RUVEX_MODULE_FILE);
    {
        runtime::EffectSession session(
            {.module = module, .project = {.width = kSize, .height = kSize}});
        runtime::Editor editor(session);
        runtime::Viewer viewer(editor);
        const auto page = editor.open(kCropPageId);
        page->show();
        ASSERT_EQ(viewer.render(surface), S_OK);
        ASSERT_FALSE(isBlank(surface));
    }
    module->unload();
}

/// The number of files and other areas in the program's address space.
int mappings() {
    std::ifstream maps("/proc/self/maps");
    int lines = 0;
    for (std::string line; std::getline(maps, line);) ++lines;
    return lines;
}

TEST(Reload, DrawsAThousandTimesAndKeepsNothing) {
    const auto surface = runtime::HeadlessSurface::create(kSize, kSize);
    // An OpenGL implementation keeps caches of its own.
    constexpr int kWarmUp = 50;
    for (int round = 0; round < kWarmUp; ++round) ASSERT_NO_FATAL_FAILURE(runOnce(*surface));
    const int before = mappings();
    for (int round = kWarmUp; round < kRounds; ++round) ASSERT_NO_FATAL_FAILURE(runOnce(*surface));
    EXPECT_LE(mappings(), before + kWarmUp);
}

}  // namespace
}  // namespace ruvex::test
