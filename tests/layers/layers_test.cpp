#include "tests/layers/layers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace ruvex {
namespace {

namespace fs = std::filesystem;

const fs::path kRoot = RUVEX_SOURCE_FOLDER;

bool isSource(const fs::path& path) {
    constexpr std::string_view kEndings[] = {".h", ".hpp", ".inc", ".cpp", ".c", ".S"};
    return std::ranges::count(kEndings, path.extension().string()) > 0;
}

/// Build results and hidden folders hold no sources of ours; the free folders are not checked.
bool isChecked(const fs::path& folder) {
    const std::string name = folder.filename().string();
    if (name.starts_with('.') || name == "build" || name == "out") return false;
    return std::ranges::count(freeFolders(), name) == 0;
}

void addSources(const fs::path& folder, std::vector<fs::path>& sources) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file() && isSource(entry.path())) sources.push_back(entry.path());
    }
}

/// Every source of the tree that the order of layers rules, folders that it forgot included.
std::vector<fs::path> checkedSources() {
    std::vector<fs::path> sources;
    for (const auto& entry : fs::directory_iterator(kRoot)) {
        if (entry.is_directory() && isChecked(entry.path())) addSources(entry.path(), sources);
    }
    return sources;
}

TEST(Layers, NoLineGoesAgainstTheOrder) {
    const std::vector<fs::path> sources = checkedSources();
    EXPECT_GT(sources.size(), 20u);
    for (const fs::path& source : sources) {
        const std::string path = fs::relative(source, kRoot).generic_string();
        EXPECT_NE(layerOf(path), nullptr) << path << " lies in no layer";
        std::ifstream file(source);
        int number = 0;
        for (std::string line; std::getline(file, line);) {
            ++number;
            EXPECT_EQ(complaint(path, line), "") << path << ':' << number << ": " << line;
            EXPECT_EQ(misplacedOpenGl(path, line), "") << path << ':' << number << ": " << line;
        }
    }
}

TEST(Layers, EveryQuotedIncludeOfOursNamesAFileFromTheRoot) {
    for (const fs::path& source : checkedSources()) {
        std::ifstream file(source);
        for (std::string line; std::getline(file, line);) {
            if (!line.starts_with("#include \"")) continue;
            const std::string name = line.substr(10, line.find('"', 10) - 10);
            EXPECT_TRUE(fs::exists(kRoot / name)) << source << ": " << name;
        }
    }
}

TEST(Layers, NoTwoLayersMayIncludeEachOther) {
    for (const Layer& upper : layers()) {
        for (const std::string_view lower : upper.mayInclude) {
            const Layer* layer = layerOf(lower);
            ASSERT_NE(layer, nullptr) << lower;
            EXPECT_EQ(std::ranges::count(layer->mayInclude, upper.folder), 0)
                << upper.folder << " and " << lower;
        }
    }
}

TEST(Layers, ArrowsThatPointUpAreRefused) {
    EXPECT_NE(complaint("imaging/texture.h", "#include \"sdk/images/image.h\""), "");
    EXPECT_NE(complaint("imaging/texture.h", "#include \"parameters/strings.h\""), "");
    EXPECT_NE(complaint("parameters/strings.cpp", "#include \"sdk/com/com.h\""), "");
    EXPECT_NE(complaint("sdk/effect/effect.h", "#include \"parameters/strings.h\""), "");
    EXPECT_NE(complaint("stages/snow.cpp", "  #  include \"effect/ruvex.h\""), "");
    EXPECT_NE(complaint("stages/snow.cpp", "#include \"parameters/parameter_table.h\""), "");
    EXPECT_NE(complaint("host/base/vx_ds_effect.h", "#include \"host/module/factory.h\""), "");
    EXPECT_NE(complaint("overlay/tool.cpp", "#include \"effect/ruvex.h\""), "");
    EXPECT_NE(complaint("runtime/host.cpp", "#include \"effect/ruvex.h\""), "");
    EXPECT_NE(complaint("runtime/host.cpp", "#include \"parameters/parameter_table.h\""), "");
    EXPECT_NE(complaint("cli/main.cpp", "#include \"effect/ruvex.h\""), "");
    EXPECT_NE(complaint("media/reader.cpp", "#include \"imaging/pixel.h\""), "");
    EXPECT_NE(complaint("media/reader.cpp", "#include \"sdk/images/image.h\""), "");
    EXPECT_NE(complaint("files/words.h", "#include \"media/frame.h\""), "");
    EXPECT_NE(complaint("media/reader.cpp", "#include \"jobs/render_job.h\""), "");
    EXPECT_NE(complaint("looks/look_file.cpp", "#include \"media/frame.h\""), "");
    EXPECT_NE(complaint("looks/look_file.cpp", "#include \"jobs/render_job.h\""), "");
    EXPECT_NE(complaint("looks/look_file.cpp", "#include \"effect/ruvex.h\""), "");
    EXPECT_NE(complaint("jobs/render_plan.cpp", "#include \"cli/progress.h\""), "");
    EXPECT_NE(complaint("adapters/plug_in.cpp", "#include \"jobs/render_job.h\""), "");
    EXPECT_NE(complaint("cli/main.cpp", "#include \"desk/window.h\""), "");
    EXPECT_NE(complaint("imaging/texture.cpp", "#include \"texture.h\""), "");
    EXPECT_NE(complaint("imaging/texture.cpp", "#include \"tests/layers/layers.h\""), "");
    EXPECT_NE(complaint("newcomer/file.cpp", "#include \"imaging/pixel.h\""), "");
    EXPECT_NE(complaint("sdkold/file.cpp", "#include \"imaging/pixel.h\""), "");
}

TEST(Layers, ArrowsThatPointDownAreAllowed) {
    EXPECT_EQ(complaint("imaging/texture.cpp", "#include \"imaging/texture.h\""), "");
    EXPECT_EQ(complaint("parameters/strings.cpp", "#include \"sdk/com/guid.h\""), "");
    EXPECT_EQ(complaint("host/module/factory.cpp", "#include \"host/base/module.h\""), "");
    EXPECT_EQ(complaint("pages/resources/dialogs.h", "#include \"pages/page.h\""), "");
    EXPECT_EQ(complaint("effect/ruvex.cpp", "#include \"stages/snow.h\""), "");
    EXPECT_EQ(complaint("cli/main.cpp", "#include \"runtime/host.h\""), "");
    EXPECT_EQ(complaint("jobs/render_plan.cpp", "#include \"looks/look_file.h\""), "");
    EXPECT_EQ(complaint("looks/look_file.cpp", "#include \"files/words.h\""), "");
    EXPECT_EQ(complaint("adapters/plug_in.cpp", "#include \"looks/look_file.h\""), "");
    EXPECT_EQ(complaint("media/frame.h", "#include \"sdk/images/sample_convert.h\""), "");
    EXPECT_EQ(complaint("imaging/texture.cpp", "// #include \"sdk/com/com.h\""), "");
    EXPECT_EQ(complaint("imaging/texture.cpp", "#define X"), "");
}

TEST(Layers, OutsideLibrariesStayWithTheirUsers) {
    EXPECT_NE(complaint("imaging/threads.cpp", "#include <windows.h>"), "");
    EXPECT_NE(complaint("runtime/host.cpp", "#include <libavutil/frame.h>"), "");
    EXPECT_NE(complaint("looks/look_file.cpp", "#include <libavutil/frame.h>"), "");
    EXPECT_NE(complaint("files/words.h", "#include <libavutil/frame.h>"), "");
    EXPECT_NE(complaint("jobs/render_plan.cpp", "#include <libavutil/frame.h>"), "");
    EXPECT_NE(complaint("jobs/render_plan.cpp", "#include <CLI/CLI.hpp>"), "");
    EXPECT_NE(complaint("looks/look_file.cpp", "#include <CLI/CLI.hpp>"), "");
    EXPECT_EQ(complaint("looks/look_file.cpp", "#include <nlohmann/json.hpp>"), "");
    EXPECT_NE(complaint("effect/ruvex.cpp", "#include <QObject>"), "");
    EXPECT_NE(complaint("pages/page.cpp", "#include <GL/gl.h>"), "");
    EXPECT_EQ(complaint("imaging/threads.cpp", "#include <thread>"), "");
    EXPECT_EQ(complaint("media/reader.cpp", "#include <libavutil/frame.h>"), "");
    EXPECT_EQ(complaint("sdk/com/com.h", "#include <objbase.h>"), "");
    EXPECT_NE(complaint("overlay/draw.cpp", "#include <GL/gl.h>"), "");
    EXPECT_EQ(complaint("sdk/open_gl/open_gl.h", "#include <GL/gl.h>"), "");
    EXPECT_NE(complaint("sdk/viewer/viewer_surface.cpp", "#include <EGL/egl.h>"), "");
    EXPECT_EQ(complaint("runtime/headless_surface.cpp", "#include <EGL/egl.h>"), "");
}

TEST(Layers, OpenGlIsCalledInFewFilesAlone) {
    EXPECT_EQ(misplacedOpenGl("overlay/vx_t_group.cpp", "    gl().glBegin(GL_LINES);"), "glBegin");
    EXPECT_EQ(misplacedOpenGl("overlay/vx_t_group.cpp", "gluDisk(quadric, 0, 1);"), "gluDisk");
    EXPECT_EQ(misplacedOpenGl("overlay/drawing.cpp", "auto* call = &::glEnd;"), "glEnd");
    EXPECT_EQ(misplacedOpenGl("sdk/viewer/viewer_controller.cpp", "a(); glEnd(); // b"), "glEnd");
    EXPECT_EQ(misplacedOpenGl("runtime/viewer.cpp", "glFlush();"), "glFlush");
    for (const char* user : {"overlay/draw.cpp", "overlay/draw.h", "overlay/font_text.cpp",
                             "overlay/interact_render.cpp", "sdk/open_gl/open_gl.h",
                             "sdk/viewer/viewer_font.cpp", "desk/viewer.cpp"}) {
        EXPECT_EQ(misplacedOpenGl(user, "glBegin(GL_LINES);"), "") << user;
    }
    for (const char* line : {"VxTDraw::loadMatrixIntoGl();", "openGl();", "int glue = glow + gl;",
                             "wglGetCurrentDC();", "// as glBegin does",
                             "const auto myglBegin = 1;", "RUVEX_glBegin", ""}) {
        EXPECT_EQ(misplacedOpenGl("overlay/vx_t_group.cpp", line), "") << line;
    }
}

}  // namespace
}  // namespace ruvex
