// The crop box of the module's effect, in the stand-in host's viewer.

#include <memory>
#include <optional>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "parameters/parameter_table.h"
#include "runtime/editor.h"
#include "runtime/error.h"
#include "runtime/images.h"
#include "runtime/viewer.h"
#include "tests/effect/render_fixture.h"
#include "tests/overlay_pictures/page_window.h"
#include "tests/overlay_pictures/state.h"

namespace ruvex::test {
namespace {

using Page = std::unique_ptr<runtime::OpenPage>;

constexpr LONG kPen = 1;

/// What a viewer shows: its size in pixels, and the part of the world in it.
struct View {
    int width, height;
    double worldX, worldY, worldWidth, worldHeight;
    Backdrop backdrop = Backdrop::Grey;
};

constexpr runtime::Project kFrame{.width = 180, .height = 144};
/// A margin of 10 pixels around the frame, each pixel one unit.
constexpr View kWhole{200, 164, -10, -10, 200, 164};

/// An effect whose Cropping page is in front, and a viewer.
class CropScene {
public:
    explicit CropScene(const runtime::Project& project = kFrame, const View& shown = kWhole)
        : project_(project), view_(shown) {
        surface_->setWorld(view_.worldX, view_.worldY, view_.worldWidth, view_.worldHeight);
        page_->show();
        draw();
    }

    void set(ParameterId id, double value) { editor_.setValue(row(id).identifier, value); }
    void setBox(double left, double right, double bottom, double top) {
        set(ParameterId::CropLeft, left);
        set(ParameterId::CropRight, right);
        set(ParameterId::CropBottom, bottom);
        set(ParameterId::CropTop, top);
    }

    // The pen, in world units.
    void move(double x, double y) { check(viewer_.penMove(event(0, x, y))); }
    void press(double x, double y) { check(viewer_.penDown(event(kPen, x, y))); }
    void drag(double x, double y) { check(viewer_.penMove(event(kPen, x, y))); }
    void release(double x, double y) { check(viewer_.penUp(event(kPen, x, y))); }

    Page open(const GUID& id) {
        Page opened = editor_.open(id, parentOfPages());
        opened->show();
        return opened;
    }
    /// Hides the page and shows it again, as its tab does.
    void showAgain() {
        page_->hide();
        page_->show();
    }
    void hideControls() {
        const Page help = open(kHelpPageId);
        clickButton(GetDlgItem(help->window(), IDC_HIDE_OVERLAY_CONTROLS));
    }
    void closePage() { page_.reset(); }

    /// Renders a picture that covers a part of the frame, in pixels.
    void renderPart(int x, int y, int width, int height) {
        const auto image = [&] {
            auto made = runtime::makeImage(width, height, MFIF_RGBA_RAW_32);
            const auto aspect = static_cast<float>(project_.pixelAspect);
            made->setWorldOrigin({static_cast<float>(x), static_cast<float>(y) / aspect});
            made->setWorldSize({static_cast<float>(width), static_cast<float>(height) / aspect});
            return made;
        };
        runtime::RenderRequest request;
        request.input = image();
        request.output = image();
        session_.render(request);
    }

    /// Draws the controls over the backdrop.
    StatePicture draw() {
        surface_->setPixels(backdropPixels(view_.backdrop, view_.width, view_.height));
        runtime::require(viewer_.render(*surface_), "the controls cannot be drawn");
        return pictureOf(*surface_, view_.width, view_.height, view_.backdrop);
    }

private:
    static void check(HRESULT status) { runtime::require(status, "the pen cannot be used"); }
    static tagVWPENEVENT event(LONG button, double x, double y) {
        return {.button = button, .x = x, .y = y};
    }

    runtime::Project project_;
    View view_;
    runtime::EffectSession session_{
        runtime::EffectSession::Setup{.module = builtModule(), .project = project_}};
    runtime::Editor editor_{session_};
    runtime::Viewer viewer_{editor_};
    Page page_ = editor_.open(kCropPageId, parentOfPages());
    ComPtr<runtime::HeadlessSurface> surface_ =
        runtime::HeadlessSurface::create(view_.width, view_.height);
};

using Script = std::function<void(CropScene&)>;

/// A state of a box inside the frame, whose lines are all seen.
State boxState(std::string name, Script script, View shown = kWhole,
               runtime::Project project = kFrame) {
    return {std::move(name), [=] {
                CropScene scene(project, shown);
                scene.setBox(25, 75, 20, 90);
                script(scene);
                return scene.draw();
            }};
}

/// The same, of which nothing is seen.
State emptyState(std::string name, Script script) {
    State state = boxState(std::move(name), std::move(script));
    state.draw = [draw = std::move(state.draw)] {
        StatePicture picture = draw();
        picture.drawn = false;
        return picture;
    };
    return state;
}

/// A place of the box where the pen takes lines, in world units.
struct Grip {
    const char* name;
    double x, y;
};
constexpr Grip kGrips[] = {
    {"left", 45, 70},      {"right", 135, 70},      {"bottom", 100, 28.8},
    {"top", 100, 129.6},   {"left-bottom", 45, 28}, {"right-bottom", 135, 28},
    {"left-top", 45, 130}, {"right-top", 135, 130},
};
constexpr double kDragX = 13.25, kDragY = -7.5;

void addPenStates(std::vector<State>& states) {
    for (const Grip& grip : kGrips) {
        const std::string name = grip.name;
        states.push_back(
            boxState("crop-hover-" + name, [=](CropScene& scene) { scene.move(grip.x, grip.y); }));
        const auto drag = [=](CropScene& scene) {
            scene.move(grip.x, grip.y);
            scene.press(grip.x, grip.y);
            scene.drag(grip.x + kDragX, grip.y + kDragY);
        };
        states.push_back(boxState("crop-drag-" + name, drag));
        states.push_back(boxState("crop-dragged-" + name, [=](CropScene& scene) {
            drag(scene);
            scene.release(grip.x + kDragX, grip.y + kDragY);
        }));
    }
    states.push_back(boxState("crop-press", [](CropScene& scene) {
        scene.move(45, 70);
        scene.press(45, 70);
    }));
    states.push_back(boxState("crop-drag-beyond-the-opposite-line", [](CropScene& scene) {
        scene.press(45, 70);
        scene.drag(170, 70);
    }));
    states.push_back(boxState("crop-drag-beyond-the-frame", [](CropScene& scene) {
        scene.press(135, 70);
        scene.drag(400, 70);
    }));
    states.push_back(boxState("crop-dragged-and-left", [](CropScene& scene) {
        scene.press(45, 70);
        scene.drag(60, 75);
        scene.release(60, 75);
        scene.move(100, 80);
    }));
}

void addBoxStates(std::vector<State>& states) {
    const auto nothing = [](CropScene&) {};
    states.push_back(
        boxState("crop-default", [](CropScene& scene) { scene.setBox(0, 100, 0, 100); }));
    states.push_back(boxState("crop-inside", nothing));
    View shown = kWhole;
    shown.backdrop = Backdrop::Gradient;
    states.push_back(boxState("crop-over-gradient", nothing, shown));
    states.push_back(boxState(
        "crop-hover-over-gradient", [](CropScene& scene) { scene.move(45, 28); }, shown));
    states.push_back(boxState("crop-percent-beyond-the-frame",
                              [](CropScene& scene) { scene.setBox(-20, 130, 33.3, 250); }));
    states.push_back(
        boxState("crop-swapped", [](CropScene& scene) { scene.setBox(80, 20, 66, 11); }));
    states.push_back(
        boxState("crop-without-area", [](CropScene& scene) { scene.setBox(40, 40, 60, 60); }));
    states.push_back(boxState("crop-of-a-small-picture", [](CropScene& scene) {
        scene.renderPart(30, 24, 96, 80);
        scene.showAgain();
    }));
    states.push_back(boxState("crop-of-a-picture-across-the-border", [](CropScene& scene) {
        scene.renderPart(-30, 60, 120, 120);
        scene.showAgain();
    }));
}

void addViewStates(std::vector<State>& states) {
    const auto nothing = [](CropScene&) {};
    const auto hoverRight = [](CropScene& scene) { scene.move(135, 70); };
    states.push_back(boxState("crop-zoomed-in", hoverRight, {200, 164, 90.3, 20.7, 66.6, 54.6}));
    states.push_back(boxState("crop-zoomed-out", nothing, {200, 164, -333, -250, 900, 738}));
    states.push_back(boxState("crop-cut-by-the-view", nothing, {160, 120, 60, 40, 160, 120}));
    states.push_back(boxState("crop-odd-sizes", hoverRight, {101, 67, 0, 0, 180, 144}));
    states.push_back(boxState("crop-odd-frame", nothing, {203, 131, 0, 0, 203, 131},
                              {.width = 203, .height = 131}));
    states.push_back(boxState("crop-wide-pixels", hoverRight, {200, 164, -10, -10, 200, 164},
                              {.width = 180, .height = 144, .pixelAspect = 16.0 / 11.0}));
    states.push_back(boxState("crop-tall", nothing, {40, 300, 0, 0, 180, 144}));
    states.push_back(boxState("crop-large", hoverRight, {1500, 1100, 0, 0, 180, 144}));
}

void addHiddenStates(std::vector<State>& states) {
    states.push_back(emptyState("crop-hidden", [](CropScene& scene) { scene.hideControls(); }));
    states.push_back(emptyState("crop-hidden-under-the-pen", [](CropScene& scene) {
        scene.move(45, 70);
        scene.hideControls();
        scene.move(45, 71);
    }));
    states.push_back(emptyState("crop-hidden-during-a-drag", [](CropScene& scene) {
        scene.press(45, 70);
        scene.drag(60, 70);
        scene.hideControls();
    }));
    states.push_back(emptyState("crop-without-page", [](CropScene& scene) { scene.closePage(); }));
    states.push_back(boxState("crop-shown-again", [](CropScene& scene) {
        scene.hideControls();
        const Page help = scene.open(kHelpPageId);
        const HWND box = GetDlgItem(help->window(), IDC_HIDE_OVERLAY_CONTROLS);
        // The box of a new page starts clear.
        clickButton(box);
        clickButton(box);
        scene.showAgain();
    }));
}

}  // namespace

std::vector<State> cropStates() {
    std::vector<State> states;
    addBoxStates(states);
    addPenStates(states);
    addViewStates(states);
    addHiddenStates(states);
    return states;
}

}  // namespace ruvex::test
