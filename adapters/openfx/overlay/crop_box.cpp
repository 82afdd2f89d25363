#include "adapters/openfx/overlay/crop_box.h"

#include <cmath>

#include "adapters/openfx/overlay/page_parent.h"
#include "parameters/parameter_table.h"
#include "runtime/error.h"

namespace ruvex::openfx {
namespace {

constexpr LONG kNoButton = 0;
constexpr LONG kMainButton = 1;

runtime::EffectSession::Setup setupFor(const PicturePlace& place,
                                       std::shared_ptr<runtime::Module> module) {
    return {.module = std::move(module),
            .project = {
                .width = place.width, .height = place.height, .pixelAspect = place.pixelAspect}};
}

/// The pages of the effect are in the order of ParameterPage.
GUID croppingPage(const runtime::Editor& editor) {
    return editor.pages().at(static_cast<std::size_t>(ParameterPage::Cropping));
}

double edgeOf(const runtime::EffectSession& session, ParameterId id) {
    return session.value(row(id).identifier);
}

void setEdge(runtime::EffectSession& session, ParameterId id, double value) {
    const double wanted = std::isfinite(value) ? value : row(id).defaultValue;
    if (edgeOf(session, id) != wanted) session.setValue(row(id).identifier, wanted);
}

}  // namespace

CropBox::CropBox(const PicturePlace& place)
    : place_(place),
      module_(runtime::Module::loadDefault()),
      toolClass_(*module_),
      session_(setupFor(place, module_)),
      editor_(session_),
      viewer_(editor_, [this](ULONG, const RECT*) { redraw_ = true; }),
      page_(editor_.open(croppingPage(editor_), pageParent())) {
    page_->show();
}

void CropBox::setCrop(const Crop& crop) {
    if (dragging_) return;
    setEdge(session_, ParameterId::CropLeft, crop.left);
    setEdge(session_, ParameterId::CropRight, crop.right);
    setEdge(session_, ParameterId::CropBottom, crop.bottom);
    setEdge(session_, ParameterId::CropTop, crop.top);
}

Crop CropBox::crop() const {
    return {edgeOf(session_, ParameterId::CropLeft), edgeOf(session_, ParameterId::CropRight),
            edgeOf(session_, ParameterId::CropBottom), edgeOf(session_, ParameterId::CropTop)};
}

bool CropBox::draw() {
    const auto view = currentView();
    if (!view) return false;
    // A unit of the world is the width of a pixel.
    const ContextDrawing drawing(*view, place_.left, place_.bottom, place_.pixelAspect);
    return drawing.canDraw() && SUCCEEDED(viewer_.render(drawing.surface()));
}

tagVWPENEVENT CropBox::eventAt(double x, double y, LONG button) const {
    return {.button = button,
            .x = (x - place_.left) / place_.pixelAspect,
            .y = (y - place_.bottom) / place_.pixelAspect};
}

bool CropBox::press(double x, double y) {
    const tagVWPENEVENT event = eventAt(x, y, kMainButton);
    viewer_.penDown(event);
    // The tool takes each press. Only a drag of lines, even by nothing, asks for a redraw.
    redraw_ = false;
    viewer_.penMove(event);
    dragging_ = redraw_;
    redraw_ = true;
    if (!dragging_) end();
    return dragging_;
}

void CropBox::move(double x, double y) {
    viewer_.penMove(eventAt(x, y, dragging_ ? kMainButton : kNoButton));
}

void CropBox::release(double x, double y) {
    if (!dragging_) return;
    // Hosts may leave out the last movement.
    move(x, y);
    dragging_ = false;
    viewer_.penUp(eventAt(x, y, kMainButton));
    end();
}

void CropBox::release() {
    if (std::exchange(dragging_, false)) end();
}

void CropBox::end() {
    viewer_.releasePen();
    // The host keeps the steps that can be undone.
    editor_.undoStack().clear();
}

}  // namespace ruvex::openfx
