#include "runtime/headless_surface.h"

#include <gmock/gmock.h>

#include "runtime/error.h"
#include "tests/drawing/drawing_test.h"

namespace ruvex {
namespace {

using runtime::HeadlessSurface;

TEST(HeadlessSurface, TellsItsSizeAndTheWorldThatItShows) {
    const auto surface = HeadlessSurface::create(30, 20);
    tagVWOPENGLSURFACE info{};
    EXPECT_EQ(surface->Begin(&info), S_OK);
    EXPECT_EQ(surface->End(), S_OK);
    EXPECT_EQ(info.width, 30);
    EXPECT_EQ(info.height, 20);
    EXPECT_EQ(info.worldX, 0);
    EXPECT_EQ(info.worldY, 0);
    EXPECT_EQ(info.worldWidth, 30);
    EXPECT_EQ(info.worldHeight, 20);
    surface->setWorld(-1, -2, 300.5, 400);
    EXPECT_EQ(surface->Begin(&info), S_OK);
    EXPECT_EQ(surface->End(), S_OK);
    EXPECT_EQ(info.width, 30);
    EXPECT_EQ(info.worldX, -1);
    EXPECT_EQ(info.worldY, -2);
    EXPECT_EQ(info.worldWidth, 300.5);
    EXPECT_EQ(info.worldHeight, 400);
}

TEST(HeadlessSurface, BeginsOnceAndEndsOnce) {
    const auto surface = HeadlessSurface::create(10, 10);
    tagVWOPENGLSURFACE info;
    EXPECT_EQ(surface->End(), E_UNEXPECTED);
    EXPECT_EQ(surface->Begin(nullptr), E_POINTER);
    EXPECT_EQ(surface->Begin(&info), S_OK);
    EXPECT_EQ(surface->Begin(&info), E_UNEXPECTED);
    EXPECT_EQ(surface->End(), S_OK);
    EXPECT_EQ(surface->End(), E_UNEXPECTED);
}

TEST(HeadlessSurface, StartsBlackAndTransparent) {
    EXPECT_EQ(HeadlessSurface::create(7, 5)->pixels(), std::vector<std::uint8_t>(7 * 5 * 4, 0));
}

TEST(HeadlessSurface, IsClearedToAColour) {
    const auto surface = HeadlessSurface::create(7, 5);
    surface->clear(0.2f, 0.4f, 0.6f, 0.8f);
    const auto pixels = surface->pixels();
    ASSERT_EQ(pixels.size(), 7u * 5u * 4u);
    for (std::size_t i = 0; i < pixels.size(); ++i) EXPECT_EQ(pixels[i], 51 * (i % 4 + 1));
}

TEST(HeadlessSurface, ReturnsThePixelsThatWereSet) {
    const auto surface = HeadlessSurface::create(7, 5);
    std::vector<std::uint8_t> rgba(7 * 5 * 4);
    for (std::size_t i = 0; i < rgba.size(); ++i) rgba[i] = static_cast<std::uint8_t>(i * 37);
    surface->setPixels(rgba);
    EXPECT_EQ(surface->pixels(), rgba);
}

TEST(HeadlessSurface, HasItsFirstRowAtTheBottom) {
    const auto surface = HeadlessSurface::create(10, 10);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(vwSurfaceBeginRenderOpenGL(surface.get(), &info), S_OK);
    gl().glRectf(-1.0f, -1.0f, 0.0f, -0.8f);
    ASSERT_EQ(vwSurfaceEndRenderOpenGL(surface.get()), S_OK);
    const test::Picture drawn(*surface, 10);
    EXPECT_EQ(drawn.row(0, 0, 10), "wwwww.....");
    EXPECT_EQ(drawn.drawn(), 5);
}

TEST(HeadlessSurface, RefusesWhatItCannotDo) {
    EXPECT_THROW(HeadlessSurface::create(0, 10), runtime::Error);
    EXPECT_THROW(HeadlessSurface::create(10, -1), runtime::Error);
    const auto surface = HeadlessSurface::create(10, 10);
    EXPECT_THROW(surface->setPixels(std::vector<std::uint8_t>(399)), runtime::Error);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(surface->Begin(&info), S_OK);
    EXPECT_THROW(surface->setPixels(std::vector<std::uint8_t>(400)), runtime::Error);
    EXPECT_EQ(surface->End(), S_OK);
}

TEST(HeadlessSurface, UsesThePartInTheLowLeftCorner) {
    const auto surface = HeadlessSurface::create(4, 3);
    surface->setPixels(std::vector<std::uint8_t>(4 * 3 * 4, 10));
    surface->useSize(2, 1);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(surface->Begin(&info), S_OK);
    EXPECT_THROW(surface->useSize(1, 1), runtime::Error);
    ASSERT_EQ(surface->End(), S_OK);
    EXPECT_EQ(info.width, 2);
    EXPECT_EQ(info.height, 1);
    EXPECT_EQ(info.worldWidth, 4.0);
    surface->setPixels({1, 2, 3, 4, 5, 6, 7, 8});
    EXPECT_EQ(surface->pixels(), (std::vector<std::uint8_t>{1, 2, 3, 4, 5, 6, 7, 8}));
    surface->useSize(4, 3);
    std::vector<std::uint8_t> whole(4 * 3 * 4, 10);
    for (std::uint8_t i = 0; i < 8; ++i) whole[i] = i + 1;
    EXPECT_EQ(surface->pixels(), whole);
    EXPECT_THROW(surface->useSize(5, 3), runtime::Error);
    EXPECT_THROW(surface->useSize(4, 4), runtime::Error);
    EXPECT_THROW(surface->useSize(0, 3), runtime::Error);
}

TEST(HeadlessSurface, DrawsInsideTheRenderOfAnother) {
    const auto outer = HeadlessSurface::create(10, 10);
    const auto inner = HeadlessSurface::create(10, 10);
    tagVWOPENGLSURFACE info;
    ASSERT_EQ(outer->Begin(&info), S_OK);
    ASSERT_EQ(inner->Begin(&info), S_OK);
    VxTDraw::setColour(paletteGreen);
    gl().glRectf(-1, -1, 1, 1);
    ASSERT_EQ(inner->End(), S_OK);
    VxTDraw::setColour(paletteRed);
    gl().glRectf(-1, -1, 1, 1);
    ASSERT_EQ(outer->End(), S_OK);
    EXPECT_EQ(test::Picture(*inner, 10).count(paletteGreen), 100);
    EXPECT_EQ(test::Picture(*outer, 10).count(paletteRed), 100);
}

TEST(HeadlessSurface, LeavesNoContextCurrent) {
    const auto surface = HeadlessSurface::create(10, 10);
    surface->clear(0, 0, 0);
    GLint width = -1;
    gl().glGetIntegerv(GL_VIEWPORT, &width);
    EXPECT_EQ(width, -1) << "without a context the function does nothing";
}

}  // namespace
}  // namespace ruvex
