// A picture of one object of the tree.

#pragma once

#include <cmath>
#include <memory>

#include "overlay/vx_t_object.h"
#include "tests/drawing/drawing_test.h"
#include "tests/drawing/open_gl_state.h"

namespace ruvex::test {

/// A picture of an object, with the origin of the tree in its middle.
class CentredPicture {
public:
    static constexpr int kSize = 241, kMiddle = 120;

    explicit CentredPicture(VxTObject& object, const VxColour& behind = kEmpty) {
        surface_->clear(behind.r, behind.g, behind.b);
        tagVWOPENGLSURFACE info;
        EXPECT_EQ(vwSurfaceBeginRenderOpenGL(surface_.get(), &info), S_OK);
        useUnitsOfPixels(kSize, kSize);
        VxTDraw::translate(kMiddle, kMiddle);
        gl().glEnable(GL_LINE_STIPPLE);
        VxTDraw::currentFont = VxTDraw::createFont(wglGetCurrentDC());
        object.draw();
        VxTDraw::currentFont = 0;
        EXPECT_EQ(readNumber(GL_MODELVIEW_STACK_DEPTH), 1);
        EXPECT_EQ(gl().glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        EXPECT_EQ(vwSurfaceEndRenderOpenGL(surface_.get()), S_OK);
        picture_ = std::make_unique<Picture>(*surface_, kSize);
    }

    Pixel at(float x, float y) const {
        return picture_->at(kMiddle + static_cast<int>(std::lround(x)),
                            kMiddle + static_cast<int>(std::lround(y)));
    }
    std::string row(int y, int from, int to) const {
        return picture_->row(kMiddle + y, kMiddle + from, kMiddle + to);
    }
    std::string column(int x, int from, int to) const {
        return picture_->column(kMiddle + x, kMiddle + from, kMiddle + to);
    }
    int count(const VxColour& colour) const { return picture_->count(colour); }
    int drawn() const { return picture_->drawn(); }

private:
    ComPtr<runtime::HeadlessSurface> surface_ = runtime::HeadlessSurface::create(kSize, kSize);
    std::unique_ptr<Picture> picture_;
};

}  // namespace ruvex::test
