// Axes, groups and rectangles in trees of their own.

#include <cmath>

#include "overlay/vx_t_2d_axis_group.h"
#include "overlay/vx_t_group.h"
#include "overlay/vx_t_rectangle.h"
#include "tests/overlay_pictures/tree_scene.h"

namespace ruvex::test {
namespace {

using Axis = VxT2DAxis;

/// A tree and its pen.
class TreePen {
public:
    void move(VxPosition where) { send(VxMessageId::PenMoved, where); }
    void press(VxPosition where) { send(VxMessageId::PenDown, where); }
    void release(VxPosition where) { send(VxMessageId::PenUp, where); }

    StatePicture draw(Backdrop backdrop = Backdrop::Grey, std::vector<TextArea> texts = {}) {
        return drawOnSurface([this] { manager.render(); }, backdrop, std::move(texts));
    }

    VxTManager manager;

private:
    void send(VxMessageId id, VxPosition where) {
        VxMessage message(id);
        message.setPosition(where);
        manager.handleMessage(&message, nullptr);
    }
};

/// Where the pen is when the state is drawn.
enum class Pen { Away, Over, Down, Dragging, Up };
struct PenWord {
    Pen pen;
    const char* word;
};
constexpr PenWord kPens[] = {
    {Pen::Over, "hover"}, {Pen::Down, "press"}, {Pen::Dragging, "drag"}, {Pen::Up, "dragged"}};

void usePen(TreePen& tree, Pen pen, VxPosition place, VxPosition target) {
    if (pen == Pen::Away) return;
    // A pen that starts where it is moved to has not moved.
    tree.move({-120, -120});
    tree.move(place);
    if (pen == Pen::Over) return;
    tree.press(place);
    if (pen == Pen::Down) return;
    tree.move(target);
    if (pen == Pen::Up) tree.release(target);
}

/// A place where an object is taken, and to where it is dragged.
struct Handle {
    const char* name;
    VxPosition place, target;
};

// Axes.

constexpr std::uint32_t kAllHandles =
    Axis::kCentre | Axis::kAnyScale | Axis::kRotate | Axis::kAspect;
/// Of an axis of twice the size. The arc is dragged by 90 degrees, whose sine and arctangent are
/// the same everywhere: of other angles the systems' libraries give other last bits.
constexpr Handle kAxisHandles[] = {
    {"centre", {0, 0}, {11, -7}},      {"move-x", {-40, 0}, {-25, 9}},
    {"move-y", {0, -40}, {9, -25}},    {"corner", {-74, -74}, {-80, -60}},
    {"scale-x", {-74, 10}, {-60, 12}}, {"scale-y", {10, -74}, {12, -84}},
    {"rotate", {64, 0}, {0, 64}},      {"aspect", {94, 94}, {80, 96}},
};

void makeLarge(Axis& axis) {
    axis.setUiScale(2.0f);
    axis.updateBounds();
}

using AxisChange = std::function<void(Axis&)>;

State axisState(std::string name, std::uint32_t handles, AxisChange change,
                Backdrop backdrop = Backdrop::Grey) {
    return {"axis-" + std::move(name), [=] {
                TreePen tree;
                Axis axis("axis", handles);
                makeLarge(axis);
                change(axis);
                axis.updateBounds();
                tree.manager.addObject(&axis);
                return tree.draw(backdrop);
            }};
}

void addAxisPenStates(std::vector<State>& states) {
    for (const Handle& handle : kAxisHandles) {
        for (const PenWord& pen : kPens) {
            states.push_back({std::string("axis-") + pen.word + "-" + handle.name, [=] {
                                  TreePen tree;
                                  Axis axis("axis", kAllHandles);
                                  makeLarge(axis);
                                  tree.manager.addObject(&axis);
                                  usePen(tree, pen.pen, handle.place, handle.target);
                                  return tree.draw();
                              }});
        }
    }
}

void addAxisStates(std::vector<State>& states) {
    struct Kind {
        const char* name;
        std::uint32_t handles;
    };
    constexpr Kind kKinds[] = {
        {"all", kAllHandles},       {"none", 0},
        {"centre", Axis::kCentre},  {"move-x", Axis::kTranslateX},
        {"scale", Axis::kAnyScale}, {"rotate", Axis::kRotate},
        {"aspect", Axis::kAspect},
    };
    const auto same = [](Axis&) {};
    for (const Kind& kind : kKinds) states.push_back(axisState(kind.name, kind.handles, same));
    states.push_back(axisState("over-gradient", kAllHandles, same, Backdrop::Gradient));
    states.push_back(
        axisState("shows-all", 0, [](Axis& axis) { axis.axisFlags |= Axis::kShowsAll; }));
    states.push_back(axisState("no-hit-test", kAllHandles,
                               [](Axis& axis) { axis.axisFlags |= Axis::kNoHitTest; }));
    states.push_back(
        axisState("default-size", kAllHandles, [](Axis& axis) { axis.setUiScale(1.0f); }));
    states.push_back(axisState("odd-size", kAllHandles, [](Axis& axis) {
        axis.setUiScale(1.37f);
        axis.setCentre(0.3f, -0.7f);
    }));
    states.push_back(axisState("turned", kAllHandles, [](Axis& axis) {
        axis.rotation = 33.0f;
        axis.scaleX = 0.8f;
        axis.scaleY = 1.2f;
    }));
    states.push_back(axisState("mirrored", kAllHandles, [](Axis& axis) {
        axis.rotation = -110.0f;
        axis.scaleX = -0.9f;
        axis.aspect = 0.4f;
    }));
    states.push_back(axisState("squeezed", kAllHandles, [](Axis& axis) { axis.aspect = -0.6f; }));
}

void addAxisTextStates(std::vector<State>& states) {
    states.push_back({"axis-name", [] {
                          TreePen tree;
                          Axis axis("box", kAllHandles);
                          makeLarge(axis);
                          axis.axisFlags |= Axis::kShowName;
                          tree.manager.addObject(&axis);
                          return tree.draw(Backdrop::Grey, {textAt(5, 5, 4)});
                      }});
    states.push_back({"axis-tip", [] {
                          TreePen tree;
                          Axis axis("axis", kAllHandles);
                          makeLarge(axis);
                          axis.tip.emplace("box");
                          tree.manager.addObject(&axis);
                          tree.move({-40, 0});
                          // Beside the pen.
                          return tree.draw(Backdrop::Grey, {textAt(-32, 8, 20)});
                      }});
}

// Rectangles.

/// Edges between pixels, and on them.
constexpr VxRect kRect{-80.5f, -55, 70, 48.25f};
constexpr VxPosition kMiddleOfRect{-5.25f, -3.375f};
constexpr Handle kRectHandles[] = {
    {"left", {-80, -30}, {-66, -20}},   {"right", {70, -30}, {95, -20}},
    {"bottom", {-40, -55}, {-44, -70}}, {"top", {-40, 48}, {-44, 30}},
    {"corner", {70, 48}, {61, 60}},     {"cross", kMiddleOfRect, {9, 11}},
    {"arm", {7, -3}, {30, 20}},
};

void addRectangleStates(std::vector<State>& states) {
    const auto rectangle = [](const char* name, Backdrop backdrop, VxColour colour) {
        return State{name, [=] {
                         TreePen tree;
                         VxTRectangle object("rectangle", kRect.x0, kRect.y0, kRect.x1, kRect.y1);
                         object.colour = colour;
                         tree.manager.addObject(&object);
                         return tree.draw(backdrop);
                     }};
    };
    states.push_back(rectangle("rectangle", Backdrop::Grey, paletteRed));
    states.push_back(rectangle("rectangle-over-gradient", Backdrop::Gradient, paletteGreen));
    for (const Handle& handle : kRectHandles) {
        for (const PenWord& pen : kPens) {
            states.push_back({std::string("rectangle-") + pen.word + "-" + handle.name, [=] {
                                  TreePen tree;
                                  VxTRectangle object("rectangle", kRect.x0, kRect.y0, kRect.x1,
                                                      kRect.y1);
                                  tree.manager.addObject(&object);
                                  usePen(tree, pen.pen, handle.place, handle.target);
                                  return tree.draw();
                              }});
        }
    }
    states.push_back({"rectangle-tip", [] {
                          TreePen tree;
                          VxTRectangle object("rectangle", -90, -90, 90, 90);
                          object.tip.emplace("Tip?");
                          tree.manager.addObject(&object);
                          tree.move({-90, -40});
                          return tree.draw(Backdrop::Grey, {textAt(-82, -32, 5)});
                      }});
}

// Groups.

/// Two rectangles below an axis: one drawn under its transform, one that applies the matrix itself.
StatePicture drawAxisGroup(std::uint32_t handles, Pen pen, VxPosition place, VxPosition target) {
    TreePen tree;
    VxT2DAxisGroup group("group", handles);
    makeLarge(group);
    VxTRectangle moved("moved", -20, -10, 30, 25), global("global", -60, -40, -10, 20);
    group.addChild(&moved);
    group.addToFixed = true;
    group.addChild(&global);
    global.useGlobalMatrix = 1;
    global.colour = paletteGreen;
    group.setCentre(12, -9);
    group.rotation = 21.0f;
    group.scaleX = 1.3f;
    group.scaleY = 0.8f;
    group.updateBounds();
    tree.manager.addObject(&group);
    usePen(tree, pen, place, target);
    return tree.draw();
}

void addGroupStates(std::vector<State>& states) {
    const auto axisGroup = [&](const char* name, std::uint32_t handles, Pen pen = Pen::Away,
                               VxPosition place = {}, VxPosition target = {}) {
        states.push_back({name, [=] { return drawAxisGroup(handles, pen, place, target); }});
    };
    axisGroup("axis-group", kAllHandles);
    axisGroup("axis-group-moves-only", Axis::kCentre);
    axisGroup("axis-group-turns-only", Axis::kRotate);
    axisGroup("axis-group-hover-axis", kAllHandles, Pen::Over, {12, -50});
    axisGroup("axis-group-drag-axis", kAllHandles, Pen::Dragging, {12, -50}, {12, -30});
    const auto group = [&](const char* name, auto change) {
        states.push_back({name, [=] {
                              TreePen tree;
                              VxTGroup grouped("group");
                              VxTRectangle first("first", -90, -60, -20, 10);
                              VxTRectangle second("second", 5, -30, 80, 70);
                              second.colour = paletteBlue;
                              grouped.addChild(&first);
                              grouped.addChild(&second);
                              tree.manager.addObject(&grouped);
                              change(grouped, second);
                              return tree.draw();
                          }});
    };
    group("group", [](VxTGroup&, VxTRectangle&) {});
    group("group-blue", [](VxTGroup& grouped, VxTRectangle& second) {
        grouped.background = paletteBlue;
        grouped.groupFlags = VxTGroup::kDrawBackground;
        second.colour = paletteWhite;
    });
    group("group-without-background",
          [](VxTGroup& grouped, VxTRectangle&) { grouped.groupFlags = 0; });
    group("group-with-a-hidden-child",
          [](VxTGroup&, VxTRectangle& second) { second.setState(VxTObject::kEnabled); });
}

}  // namespace

std::vector<State> widgetStates() {
    std::vector<State> states;
    addAxisStates(states);
    addAxisPenStates(states);
    addAxisTextStates(states);
    addRectangleStates(states);
    addGroupStates(states);
    return states;
}

}  // namespace ruvex::test
