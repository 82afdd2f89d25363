// Lines, arcs, discs, arrows and texts, plain and smooth.

#include <cmath>
#include <cstring>

#include "overlay/plane.h"
#include "overlay/transform_level.h"
#include "tests/overlay_pictures/tree_scene.h"

namespace ruvex::test {
namespace {

using Drawing = std::function<void()>;

/// The ends of spokes, in steps of whole and half pixels: no line depends on a sine.
constexpr VxPosition kSpokes[] = {
    {100, 0},   {100, 7},   {99.5f, 20},  {90, 41.5f},  {70, 70},        {41, 90},  {13.5f, 98},
    {0, 100},   {-9, 99},   {-60, 80.5f}, {-70, 70},    {-98, 3},        {-100, 0}, {-97.5f, -25},
    {-70, -70}, {-33, -94}, {0, -100},    {27, -96.5f}, {71.5f, -69.5f}, {95, -31},
};

void drawSpokes() {
    for (const VxPosition& end : kSpokes) {
        VxTDraw::drawLine(end.x * 0.25f, end.y * 0.25f, end.x, end.y);
    }
}

void drawStippledSpokes() {
    for (const VxPosition& end : kSpokes) {
        VxTDraw::drawStippledLine(end.x * 0.25f, end.y * 0.25f, end.x, end.y, paletteBlue,
                                  paletteWhite);
    }
}

void drawArcs() {
    VxTDraw::drawArc(-40, 40, 60, -10, 100);
    VxTDraw::drawArc(-40, 40, 45.5f, 100, 35);
    VxTDraw::drawArc(40.5f, 30, 50, 170, 280);
    VxTDraw::drawArc(40, -40, 33, 0, 360);
    VxTDraw::drawArc(-50, -60, 40, 20, 130, QuadricStyle::Fill);
    VxTDraw::drawStippledArc(10, -30, 80, 180, 300, paletteGreen, paletteWhite);
}

void drawDiscs() {
    VxTDraw::drawDisk(-60, 40, 35);
    VxTDraw::drawCircle(40, 50, 41.5f);
    VxTDraw::drawDot(-50.5f, -50, 20, paletteGreen, paletteWhite);
    VxTDraw::drawDot(30, -60, 4, paletteBlue, paletteDark);
    VxTDraw::drawDot(60.25f, -60.75f, 1.5f, paletteBlue, paletteWhite);
}

void drawArrows() {
    for (const VxPosition& end : kSpokes) {
        VxTDraw::drawArrow(end, end, {20, 5}, paletteRed, paletteWhite);
    }
}

void drawRectangles() {
    VxTDraw::drawRectOutline(-100, -80, -20, -10);
    VxTDraw::drawRectOutline(-99.5f, 10.5f, -20.5f, 80.5f);
    VxTDraw::drawFilledRect(0, -80, 50.5f, -20.25f);
    VxTDraw::drawFilledRect(100, 20, 20, 90);
}

/// The shapes that a state may draw, in red.
struct Shapes {
    const char* name;
    void (*draw)();
};
constexpr Shapes kShapes[] = {
    {"lines", drawSpokes},  {"stippled-lines", drawStippledSpokes},
    {"arcs", drawArcs},     {"discs", drawDiscs},
    {"arrows", drawArrows}, {"rectangles", drawRectangles},
};

State shapeState(std::string name, Drawing draw, Backdrop backdrop = Backdrop::Grey) {
    return {std::move(name), [=] {
                return drawOnSurface(
                    [&] {
                        VxTDraw::setColour(paletteRed);
                        draw();
                    },
                    backdrop);
            }};
}

void addPlainAndSmooth(std::vector<State>& states) {
    struct Smooth {
        const char* suffix;
        std::uint32_t request;
    };
    constexpr Smooth kSmooth[] = {
        {"", 0},
        {"-blended", 8},
        {"-smooth-lines", BlendBracket::Lines},
        {"-smooth-polygons", BlendBracket::Polygons},
        {"-smooth", BlendBracket::Points | BlendBracket::Lines | BlendBracket::Polygons},
    };
    for (const Shapes& shapes : kShapes) {
        for (const Smooth& smooth : kSmooth) {
            states.push_back(shapeState(std::string(shapes.name) + smooth.suffix, [=] {
                const BlendBracket bracket(smooth.request);
                shapes.draw();
            }));
        }
        states.push_back(shapeState(
            std::string(shapes.name) + "-over-gradient",
            [=] {
                const BlendBracket bracket(BlendBracket::Lines | BlendBracket::Polygons);
                shapes.draw();
            },
            Backdrop::Gradient));
    }
}

void addWideLines(std::vector<State>& states) {
    struct Width {
        const char* name;
        float pixels;
    };
    constexpr Width kWidths[] = {
        {"lines-2-wide", 2.0f}, {"lines-3-wide", 3.0f}, {"lines-1.5-wide", 1.5f}};
    for (const Width& width : kWidths) {
        const auto draw = [=] {
            VxTDraw::setLineWidth(width.pixels);
            drawSpokes();
        };
        states.push_back(shapeState(width.name, draw));
        states.push_back(shapeState(std::string(width.name) + "-smooth", [=] {
            const BlendBracket bracket(BlendBracket::Lines);
            draw();
        }));
    }
}

void addTransforms(std::vector<State>& states) {
    for (const Shapes& shapes : kShapes) {
        states.push_back(shapeState(std::string(shapes.name) + "-transformed", [=] {
            const TransformLevel level;
            VxTDraw::translate(10.5f, -4);
            VxTDraw::rotate(30);
            VxTDraw::scale(0.7f, 1.1f);
            shapes.draw();
        }));
    }
    states.push_back(shapeState("lines-under-the-global-matrix", [] {
        const TransformLevel level;
        VxTDraw::pushMatrix();
        VxTDraw::multiplyMatrix(planeMatrix({0.9f, -0.6f}, 25.0f, {8, 5}));
        VxTDraw::loadMatrixIntoGl();
        drawSpokes();
        VxTDraw::popMatrix();
    }));
}

void addTexts(std::vector<State>& states) {
    constexpr char kText[] = "Wave (50 %)";
    states.push_back({"text", [=] {
                          const auto draw = [=] {
                              VxTDraw::setColour(paletteRed);
                              VxTDraw::drawRectOutline(-100, -20, 100, 40);
                              VxTDraw::drawText(kText, -90, 3);
                          };
                          return drawOnSurface(draw, Backdrop::Grey,
                                               {textAt(-90, 3, std::strlen(kText))});
                      }});
}

}  // namespace

std::vector<State> shapeStates() {
    std::vector<State> states;
    addPlainAndSmooth(states);
    addWideLines(states);
    addTransforms(states);
    addTexts(states);
    return states;
}

}  // namespace ruvex::test
