#include "tests/drawing/open_gl_state.h"

namespace ruvex::test {
namespace {

struct StateName {
    GLenum name;
    std::size_t values;
};

constexpr StateName kStates[] = {
    {GL_CURRENT_COLOR, 4},
    {GL_CURRENT_NORMAL, 3},
    {GL_CURRENT_TEXTURE_COORDS, 4},
    {GL_CURRENT_RASTER_POSITION, 4},
    {GL_CURRENT_RASTER_COLOR, 4},
    {GL_CURRENT_RASTER_POSITION_VALID, 1},
    {GL_MATRIX_MODE, 1},
    {GL_MODELVIEW_MATRIX, 16},
    {GL_PROJECTION_MATRIX, 16},
    {GL_TEXTURE_MATRIX, 16},
    {GL_MODELVIEW_STACK_DEPTH, 1},
    {GL_PROJECTION_STACK_DEPTH, 1},
    {GL_TEXTURE_STACK_DEPTH, 1},
    {GL_ATTRIB_STACK_DEPTH, 1},
    {GL_CLIENT_ATTRIB_STACK_DEPTH, 1},
    {GL_VIEWPORT, 4},
    {GL_DEPTH_RANGE, 2},
    {GL_SHADE_MODEL, 1},
    {GL_LINE_STIPPLE, 1},
    {GL_LINE_STIPPLE_PATTERN, 1},
    {GL_LINE_STIPPLE_REPEAT, 1},
    {GL_LINE_WIDTH, 1},
    {GL_LINE_SMOOTH, 1},
    {GL_POINT_SIZE, 1},
    {GL_POINT_SMOOTH, 1},
    {GL_POLYGON_MODE, 2},
    {GL_POLYGON_SMOOTH, 1},
    {GL_POLYGON_STIPPLE, 1},
    {GL_CULL_FACE, 1},
    {GL_FRONT_FACE, 1},
    {GL_LIGHTING, 1},
    {GL_FOG, 1},
    {GL_COLOR_MATERIAL, 1},
    {GL_NORMALIZE, 1},
    {GL_DEPTH_TEST, 1},
    {GL_DEPTH_FUNC, 1},
    {GL_DEPTH_WRITEMASK, 1},
    {GL_STENCIL_TEST, 1},
    {GL_ALPHA_TEST, 1},
    {GL_BLEND, 1},
    {GL_BLEND_SRC, 1},
    {GL_BLEND_DST, 1},
    {GL_DITHER, 1},
    {GL_COLOR_LOGIC_OP, 1},
    {GL_COLOR_WRITEMASK, 4},
    {GL_COLOR_CLEAR_VALUE, 4},
    {GL_SCISSOR_TEST, 1},
    {GL_SCISSOR_BOX, 4},
    {GL_TEXTURE_1D, 1},
    {GL_TEXTURE_2D, 1},
    {GL_LIST_BASE, 1},
    {GL_LIST_INDEX, 1},
    {GL_LIST_MODE, 1},
    {GL_DRAW_BUFFER, 1},
    {GL_READ_BUFFER, 1},
    {GL_UNPACK_SWAP_BYTES, 1},
    {GL_UNPACK_LSB_FIRST, 1},
    {GL_UNPACK_ROW_LENGTH, 1},
    {GL_UNPACK_SKIP_ROWS, 1},
    {GL_UNPACK_SKIP_PIXELS, 1},
    {GL_UNPACK_ALIGNMENT, 1},
    {GL_PACK_ALIGNMENT, 1},
    {GL_PACK_ROW_LENGTH, 1},
    {GL_ZOOM_X, 1},
    {GL_ZOOM_Y, 1},
};

void setMatrix(GLenum mode, double x, double y) {
    const double matrix[16] = {x, 0, 0, 0, 0, y, 0, 0, 0, 0, 1, 0, 0.25, 0.5, 0, 1};
    gl().glMatrixMode(mode);
    gl().glLoadMatrixd(matrix);
}

}  // namespace

std::vector<double> readState(GLenum name, std::size_t values) {
    std::vector<double> state(values);
    gl().glGetDoublev(name, state.data());
    return state;
}

double readNumber(GLenum name) {
    return readState(name, 1)[0];
}

OpenGlState readState() {
    OpenGlState all;
    for (const StateName& state : kStates) all[state.name] = readState(state.name, state.values);
    return all;
}

void setUnusualState() {
    setMatrix(GL_MODELVIEW, 2.0, 3.0);
    setMatrix(GL_PROJECTION, 0.125, 1.0 / 3.0);
    setMatrix(GL_TEXTURE, 5.0, 6.0);
    gl().glViewport(3, 4, 50, 40);
    gl().glColor3f(0.1f, 0.2f, 0.3f);
    gl().glRasterPos2f(0.5f, 0.25f);
    gl().glLineStipple(3, 0x1234);
    gl().glEnable(GL_LINE_STIPPLE);
    gl().glLineWidth(2.0f);
    gl().glShadeModel(GL_FLAT);
    gl().glEnable(GL_BLEND);
    gl().glBlendFunc(GL_ONE, GL_DST_COLOR);
    gl().glEnable(GL_LINE_SMOOTH);
    gl().glDisable(GL_DITHER);
    gl().glClearColor(0.5f, 0.25f, 0.75f, 1.0f);
    gl().glListBase(17);
    gl().glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    gl().glPixelStorei(GL_UNPACK_SKIP_ROWS, 5);
    gl().glPixelStorei(GL_UNPACK_LSB_FIRST, GL_TRUE);
}

}  // namespace ruvex::test
