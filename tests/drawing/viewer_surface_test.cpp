#include "sdk/viewer/viewer_surface.h"

#include <gmock/gmock.h>

#include "runtime/headless_surface.h"
#include "sdk/viewer/viewer_font.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex {
namespace {

using runtime::HeadlessSurface;
using test::readNumber;
using test::readState;

const std::vector<double> kIdentity = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// A surface whose context is current during the whole test, as a host's may be. It counts the
/// calls.
class HostSurface final : public ComObject<IViewerSurface> {
public:
    HostSurface() {
        tagVWOPENGLSURFACE info;
        EXPECT_EQ(surface_->Begin(&info), S_OK);
    }
    ~HostSurface() override { EXPECT_EQ(surface_->End(), S_OK); }

    HRESULT Begin(tagVWOPENGLSURFACE* info) override {
        ++begun;
        *info = {30, 20, 1.0, 2.0, 3.0, 4.0};
        return beginStatus;
    }
    HRESULT End() override {
        ++ended;
        return endStatus;
    }

    int begun = 0, ended = 0;
    HRESULT beginStatus = S_OK, endStatus = S_OK;

private:
    ComPtr<HeadlessSurface> surface_ = HeadlessSurface::create(30, 20);
};

class ViewerSurface : public testing::Test {
protected:
    HRESULT begin() { return vwSurfaceBeginRenderOpenGL(host.get(), &info); }
    HRESULT end() { return vwSurfaceEndRenderOpenGL(host.get()); }

    ComPtr<HostSurface> host = ComPtr<HostSurface>::attach(new HostSurface);
    tagVWOPENGLSURFACE info{};
};

TEST_F(ViewerSurface, HandsOutWhatTheSurfaceSays) {
    EXPECT_EQ(begin(), S_OK);
    EXPECT_EQ(info.width, 30);
    EXPECT_EQ(info.worldHeight, 4.0);
    EXPECT_EQ(host->begun, 1);
    EXPECT_EQ(host->ended, 0);
    EXPECT_EQ(end(), S_OK);
    EXPECT_EQ(host->begun, 1);
    EXPECT_EQ(host->ended, 1);
}

TEST_F(ViewerSurface, BeginsWithADefinedState) {
    test::setUnusualState();
    ASSERT_EQ(begin(), S_OK);
    EXPECT_EQ(readNumber(GL_MATRIX_MODE), GL_MODELVIEW);
    EXPECT_EQ(readState(GL_MODELVIEW_MATRIX, 16), kIdentity);
    EXPECT_EQ(readState(GL_PROJECTION_MATRIX, 16), kIdentity);
    EXPECT_EQ(readNumber(GL_LINE_STIPPLE_PATTERN), 0xFFFF);
    EXPECT_EQ(readNumber(GL_LINE_STIPPLE_REPEAT), 1);
    EXPECT_EQ(readNumber(GL_LINE_WIDTH), 1);
    EXPECT_EQ(readNumber(GL_UNPACK_ALIGNMENT), 4);
    EXPECT_EQ(readNumber(GL_UNPACK_SKIP_ROWS), 0);
    EXPECT_EQ(readNumber(GL_UNPACK_LSB_FIRST), 0);
    EXPECT_EQ(end(), S_OK);
}

TEST_F(ViewerSurface, EndsWithTheStateFromBefore) {
    test::setUnusualState();
    const auto before = readState();
    ASSERT_EQ(begin(), S_OK);
    gl().glMatrixMode(GL_PROJECTION);
    gl().glScalef(2, 2, 2);
    gl().glViewport(0, 0, 5, 5);
    gl().glColor3f(1, 1, 1);
    gl().glDisable(GL_LINE_STIPPLE);
    gl().glShadeModel(GL_SMOOTH);
    gl().glPixelStorei(GL_PACK_ALIGNMENT, 1);
    ASSERT_NE(readState(), before);
    EXPECT_EQ(end(), S_OK);
    EXPECT_EQ(readState(), before);
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(ViewerSurface, NeedsNoRoomOnTheMatrixStacks) {
    for (const GLenum mode : {GL_PROJECTION, GL_MODELVIEW}) {
        gl().glMatrixMode(mode);
        while (gl().glGetError() == GL_NO_ERROR) gl().glPushMatrix();
    }
    const auto before = readState();
    ASSERT_EQ(begin(), S_OK);
    EXPECT_EQ(end(), S_OK);
    EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    EXPECT_EQ(readState(), before);
}

TEST_F(ViewerSurface, FailsIfAStackOfAttributesIsFull) {
    const auto fill = [](bool isClients) {
        while (gl().glGetError() == GL_NO_ERROR) {
            isClients ? gl().glPushClientAttrib(GL_CLIENT_PIXEL_STORE_BIT)
                      : gl().glPushAttrib(GL_LINE_BIT);
        }
    };
    const auto expectRefusal = [&] {
        const auto before = readState();
        const double depth = readNumber(GL_ATTRIB_STACK_DEPTH);
        const double clientDepth = readNumber(GL_CLIENT_ATTRIB_STACK_DEPTH);
        EXPECT_EQ(begin(), E_FAIL);
        EXPECT_EQ(host->begun, host->ended) << "the surface is ended";
        EXPECT_EQ(readState(), before);
        EXPECT_EQ(readNumber(GL_ATTRIB_STACK_DEPTH), depth);
        EXPECT_EQ(readNumber(GL_CLIENT_ATTRIB_STACK_DEPTH), clientDepth);
        EXPECT_EQ(wglGetCurrentDC(), nullptr);
        EXPECT_EQ(end(), E_UNEXPECTED);
        EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    };
    test::setUnusualState();
    fill(true);
    expectRefusal();
    fill(false);
    expectRefusal();
    gl().glPopClientAttrib();
    expectRefusal();
    gl().glPopAttrib();
    EXPECT_EQ(begin(), S_OK) << "one level is enough";
    EXPECT_EQ(end(), S_OK);
    EXPECT_EQ(host->begun, 4);
}

TEST_F(ViewerSurface, ReturnsTheFailureOfTheSurface) {
    const auto before = readState();
    host->beginStatus = E_OUTOFMEMORY;
    EXPECT_EQ(begin(), E_OUTOFMEMORY);
    EXPECT_EQ(readState(), before);
    EXPECT_EQ(wglGetCurrentDC(), nullptr);
    EXPECT_EQ(end(), E_UNEXPECTED);
    EXPECT_EQ(host->ended, 0);
}

TEST_F(ViewerSurface, ReturnsTheStatusOfTheEnd) {
    ASSERT_EQ(begin(), S_OK);
    host->endStatus = E_FAIL;
    EXPECT_EQ(end(), E_FAIL);
    EXPECT_EQ(end(), E_UNEXPECTED) << "it has ended";
}

TEST_F(ViewerSurface, RefusesNullPointers) {
    EXPECT_EQ(vwSurfaceBeginRenderOpenGL(nullptr, &info), E_POINTER);
    EXPECT_EQ(vwSurfaceBeginRenderOpenGL(host.get(), nullptr), E_POINTER);
    EXPECT_EQ(vwSurfaceEndRenderOpenGL(nullptr), E_POINTER);
    EXPECT_EQ(host->begun, 0);
}

TEST_F(ViewerSurface, HasADeviceContextDuringARender) {
    EXPECT_EQ(wglGetCurrentDC(), nullptr);
    ASSERT_EQ(begin(), S_OK);
    EXPECT_NE(wglGetCurrentDC(), nullptr);
    ASSERT_EQ(end(), S_OK);
    EXPECT_EQ(wglGetCurrentDC(), nullptr);
}

TEST_F(ViewerSurface, RendersMayBeNestedAndEndInReverse) {
    test::setUnusualState();
    ASSERT_EQ(begin(), S_OK);
    gl().glLineWidth(3.0f);
    const auto between = readState();
    const HDC outerContext = wglGetCurrentDC();
    const auto inner = HeadlessSurface::create(10, 10);
    tagVWOPENGLSURFACE innerInfo;
    ASSERT_EQ(vwSurfaceBeginRenderOpenGL(inner.get(), &innerInfo), S_OK);
    EXPECT_EQ(innerInfo.width, 10);
    EXPECT_NE(wglGetCurrentDC(), outerContext);
    EXPECT_EQ(end(), E_UNEXPECTED) << "the inner one comes first";
    EXPECT_EQ(readNumber(GL_LINE_WIDTH), 1);
    EXPECT_EQ(vwSurfaceEndRenderOpenGL(inner.get()), S_OK);
    EXPECT_EQ(wglGetCurrentDC(), outerContext);
    EXPECT_EQ(readState(), between);
    EXPECT_EQ(end(), S_OK);
}

}  // namespace
}  // namespace ruvex
