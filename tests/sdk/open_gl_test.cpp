#include "sdk/open_gl/open_gl.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <string>
#include <thread>

#include "sdk/open_gl/open_gl_loader.h"
#include "tests/support/temp_folder.h"

namespace ruvex {
namespace {

namespace fs = std::filesystem;

/// The files that are mapped into this process.
std::string mappedFiles() {
    std::ifstream maps("/proc/self/maps");
    return {std::istreambuf_iterator<char>(maps), {}};
}

/// Where the library that is loaded under this name lies.
fs::path pathOfLoaded(const std::string& name) {
    const std::string maps = mappedFiles();
    const auto end = maps.find('\n', maps.find(name));
    const auto begin = maps.find('/', maps.rfind('\n', end - 1));
    return maps.substr(begin, end - begin);
}

TEST(OpenGl, OpensTheLibrariesOfTheSystem) {
    const OpenGl* const functions = openGl();
    ASSERT_NE(functions, nullptr);
    EXPECT_EQ(functions, &gl());
    EXPECT_EQ(functions, openGl());
#define RUVEX_EXPECT_FUNCTION(name) EXPECT_NE(gl().name, nullptr) << #name;
    RUVEX_GL_FUNCTIONS(RUVEX_EXPECT_FUNCTION)
    RUVEX_GLU_FUNCTIONS(RUVEX_EXPECT_FUNCTION)
#undef RUVEX_EXPECT_FUNCTION
    closeOpenGl();
}

TEST(OpenGl, BringsNoLibraryOfAWindowSystem) {
    ASSERT_NE(openGl(), nullptr);
    const std::string files = mappedFiles();
    EXPECT_THAT(files, testing::HasSubstr("libOpenGL"));
    for (const char* name : {"libX", "libxcb", "libGLX", "libGL.", "libwayland"}) {
        EXPECT_THAT(files, testing::Not(testing::HasSubstr(name)));
    }
    closeOpenGl();
}

TEST(OpenGl, CanBeClosedAndOpenedAgain) {
    closeOpenGl();
    for (int i = 0; i < 3; ++i) {
        ASSERT_NE(openGl(), nullptr);
        // Works without a context.
        GLUquadric* const quadric = gl().gluNewQuadric();
        EXPECT_NE(quadric, nullptr);
        gl().gluDeleteQuadric(quadric);
        closeOpenGl();
        EXPECT_EQ(gl().gluNewQuadric, nullptr);
    }
    EXPECT_THAT(mappedFiles(), testing::Not(testing::HasSubstr("libOpenGL")));
}

TEST(OpenGl, IsNullWithoutTheLibraries) {
    OpenGlLoader noGl("libMissing.so.0", "libGLU.so.1");
    EXPECT_EQ(noGl.open(), nullptr);
    OpenGlLoader noGlu("libOpenGL.so.0", "libMissing.so.0");
    EXPECT_EQ(noGlu.open(), nullptr);
    EXPECT_EQ(noGlu.functions().glBegin, nullptr);
}

TEST(OpenGl, IsNullForALibraryWithoutTheFunctions) {
    OpenGlLoader withoutGl("libm.so.6", "libGLU.so.1");
    EXPECT_EQ(withoutGl.open(), nullptr);
    OpenGlLoader withoutGlu("libOpenGL.so.0", "libm.so.6");
    EXPECT_EQ(withoutGlu.open(), nullptr);
    EXPECT_EQ(withoutGlu.functions().glBegin, nullptr) << "what was found is forgotten";
    EXPECT_THAT(mappedFiles(), testing::Not(testing::HasSubstr("libOpenGL"))) << "and closed";
}

TEST(OpenGl, TriesAgainAfterAFailure) {
    const files::TempFolder folder;
    const std::string file = folder.file("libLater.so");
    OpenGlLoader loader(file.c_str(), "libGLU.so.1");
    EXPECT_EQ(loader.open(), nullptr);
    EXPECT_EQ(loader.open(), nullptr);
    ASSERT_NE(openGl(), nullptr);
    fs::create_symlink(pathOfLoaded("libOpenGL.so"), file);
    EXPECT_NE(loader.open(), nullptr);
    loader.close();
    closeOpenGl();
}

TEST(OpenGl, MayBeOpenedByManyThreadsAtOnce) {
    std::array<const OpenGl*, 8> seen{};
    {
        std::array<std::jthread, 8> threads;
        for (std::size_t i = 0; i < threads.size(); ++i) {
            threads[i] = std::jthread([&seen, i] {
                seen[i] = openGl();
                if (seen[i] && !seen[i]->glBegin) seen[i] = nullptr;
            });
        }
    }
    EXPECT_THAT(seen, testing::Each(&gl()));
    closeOpenGl();
}

}  // namespace
}  // namespace ruvex
