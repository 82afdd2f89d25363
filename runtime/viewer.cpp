#include "runtime/viewer.h"

#include <algorithm>
#include <utility>

#include "runtime/editor.h"
#include "runtime/error.h"
#include "sdk/viewer/viewer_controller.h"

// Tools are called through references of the function's own: a tool may destroy the viewer.

namespace ruvex::runtime {

Viewer::Viewer(Editor& editor, ViewerRedraw redraw)
    : TimeFollower(editor, TimeOrder::Viewer),
      object_(ComPtr<ViewerObject>::attach(new ViewerObject(editor, std::move(redraw)))) {
    const auto scope = editor.session().enter();
    require(VWControllerSetViewer(object_.get()), "another thread has a viewer");
}

Viewer::~Viewer() {
    stopFollowing();
    const auto scope = editor().session().enter();
    // Another viewer may have replaced this one.
    if (VWControllerViewer() == ComPtr<IDSViewer>(object_)) VWControllerSetViewer(nullptr);
    object_->detach();
}

HRESULT Viewer::penDown(const tagVWPENEVENT& event) {
    const auto scope = editor().session().enter();
    const ComPtr<ViewerObject> object = object_;
    return object->pen().down(toolForPen(), event);
}

HRESULT Viewer::penMove(const tagVWPENEVENT& event) {
    const auto scope = editor().session().enter();
    const ComPtr<ViewerObject> object = object_;
    return object->pen().move(toolForPen(), event);
}

HRESULT Viewer::penUp(const tagVWPENEVENT& event) {
    const auto scope = editor().session().enter();
    const ComPtr<ViewerObject> object = object_;
    return object->pen().up(event);
}

void Viewer::releasePen() {
    const auto scope = editor().session().enter();
    const ComPtr<ViewerObject> object = object_;
    object->pen().release();
}

HRESULT Viewer::render(IViewerSurface& surface) {
    const auto scope = editor().session().enter();
    const ComPtr<ViewerObject> object = object_;
    const auto draw = [&surface](IDSInteractiveTool& tool) { return tool.OnRender(&surface); };
    return VWControllerForEachTool(object.get(), draw);
}

void Viewer::tellTime() {
    const auto scope = editor().session().enter();
    const ComPtr<ViewerObject> object = object_;
    const Editor& source = editor();
    VWControllerForEachTool(object.get(), [&source](IDSInteractiveTool& tool) {
        return tool.OnOnTimeChange(source.time());
    });
}

ComPtr<IDSInteractiveTool> Viewer::toolForPen() const {
    const ComPtr<IDSViewer> viewer = object_;
    const std::vector<VWContext> contexts = VWControllerContexts();
    const auto isOwn = [&](const VWContext& context) {
        return context.viewer == viewer && editor().edits(*context.object);
    };
    const auto newest = std::find_if(contexts.rbegin(), contexts.rend(), isOwn);
    return newest == contexts.rend() ? nullptr : newest->tool.query<IDSInteractiveTool>();
}

}  // namespace ruvex::runtime
