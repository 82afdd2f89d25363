// Drawing with OpenGL in the context that is current, for the on-screen controls.

#pragma once

#include <cstdint>

#include "overlay/matrix_stack.h"
#include "overlay/palette.h"
#include "overlay/vx_message.h"
#include "sdk/viewer/viewer_font.h"

namespace ruvex {

/// How discs and arcs are drawn.
enum class QuadricStyle { Line, Fill };

/// Base of everything that draws. Its functions may only be called between begin and end of a
/// render, on the viewer's thread, after `openGl` (sdk/open_gl/open_gl.h) has succeeded. Lengths
/// are in units of the tree, angles in degrees, anticlockwise from the X axis. Arcs, discs and
/// circles are not drawn if the memory they need can't be allocated.
class VxTDraw {
public:
    static void setColour(const VxColour& colour);
    static void setLineWidth(float pixels);

    static void drawLine(float x0, float y0, float x1, float y1);
    /// A line whose dashes have one colour and whose gaps have the other, so that it can be seen on
    /// any picture. Leaves the stipple of OpenGL as it was.
    static void drawStippledLine(float x0, float y0, float x1, float y1, const VxColour& colourA,
                                 const VxColour& colourB);
    static void drawRectOutline(float x0, float y0, float x1, float y1);
    static void drawFilledRect(float x0, float y0, float x1, float y1);

    /// Part of a circle, or with QuadricStyle::Fill a sector. Nothing for a radius of 0 or less.
    static void drawArc(float x, float y, float radius, float startDegrees, float endDegrees,
                        QuadricStyle style = QuadricStyle::Line);
    static void drawStippledArc(float x, float y, float radius, float startDegrees,
                                float endDegrees, const VxColour& colourA, const VxColour& colourB);
    /// Nothing for a radius of 0 or less.
    static void drawDisk(float x, float y, float radius);
    static void drawCircle(float x, float y, float radius);
    /// A disc with its circle.
    static void drawDot(float x, float y, float radius, const VxColour& fill,
                        const VxColour& outline);
    /// A triangle whose tip points along `direction`: `size.x` is its length, `size.y` half its
    /// width.
    static void drawArrow(VxPosition tip, VxPosition direction, VxPosition size,
                          const VxColour& fill, const VxColour& outline);

    /// Makes the 96 display lists of the characters 32 to 127 and returns the first; 0 if the font
    /// can't be made, and for null. They live as long as the OpenGL context. Opens the libraries of
    /// OpenGL and clears its errors.
    static std::uint32_t createFont(HDC context);
    /// Nothing for 0.
    static void deleteFont(std::uint32_t lists);
    /// Draws `length` characters in the present colour with the font `currentFont`. Nothing if that
    /// is 0, for a null text, for a negative length, and if OpenGL's stack of attributes is full.
    /// Characters outside 32 to 127 draw nothing.
    static void drawTextRaw(const char* text, int length, float x, float y);
    /// Draws a text in `paletteDark`, and over it, one unit up and to the right, in `paletteText`.
    /// Nothing for null.
    static void drawText(const char* text, float x, float y);

    /// The model-view matrix of OpenGL: saves and restores it, and changes it for what is drawn.
    static void pushTransform();
    static void popTransform();
    static void translate(float x, float y);
    static void rotate(float degrees);
    static void scale(float x, float y);

    /// The global matrix: a stack beside OpenGL's own. The functions are those of VxMatrixStack.
    static inline VxMatrixStack matrixStack;
    static const VxMatrix& pushMatrix() { return matrixStack.push(); }
    static const VxMatrix& popMatrix() { return matrixStack.pop(); }
    static void multiplyMatrix(const VxMatrix& matrix) { matrixStack.multiply(matrix); }
    /// Multiplies the top of the global matrix stack into OpenGL's matrix.
    static void loadMatrixIntoGl();

    /// The first display list of the font for the present render; 0 for none.
    static inline std::uint32_t currentFont = 0;
    /// Height of the font in pixels. It becomes 18 with the first font that is made.
    static inline int fontHeight = 11;
};

/// Switches blending on, and smoothing for the primitives named by `request`; the destructor
/// restores both. A request of 0 changes nothing.
class BlendBracket {
public:
    enum Request : std::uint32_t { Points = 1, Lines = 2, Polygons = 4 };

    explicit BlendBracket(std::uint32_t request);
    BlendBracket(const BlendBracket&) = delete;
    BlendBracket& operator=(const BlendBracket&) = delete;
    ~BlendBracket();

private:
    std::uint32_t request_;
    bool active_ = false;
    bool blended_ = false;
    std::int32_t source_ = 0, destination_ = 0;
    std::uint32_t smoothed_ = 0;  ///< Which kinds were smoothed before, as in Request.
};

/// Frees what all drawings share and closes the libraries of OpenGL: before the module is unloaded.
/// No context need be current.
void releaseDrawing();

}  // namespace ruvex
