// The viewer of the stand-in host: the tools that draw over the picture, and the pen.

#pragma once

#include "runtime/time_follower.h"
#include "runtime/viewer_object.h"

namespace ruvex::runtime {

/// The process's viewer, for the effect of an editor. Tools come and go with the effect's property
/// pages; all edits that they make are steps of the editor's undo stack.
///
/// The tools of all contexts are linked to the viewer (VWControllerSetViewer) by the constructor,
/// or when a context is pushed later, and unlinked by the destructor. A new viewer replaces the
/// one before. Pages may be open before and after the viewer's life.
///
/// For the thread of the editor, which is the user-interface thread; no render of the session is
/// under way. A tool may close pages, remove contexts and destroy the viewer while it is called.
class Viewer final : private TimeFollower {
public:
    /// `redraw` is called for each InvalidateLayer of a tool, and may be empty. The host draws
    /// later, once for several calls. It must not destroy the viewer. Throws StatusError if another
    /// thread has a viewer.
    explicit Viewer(Editor& editor, ViewerRedraw redraw = {});
    ~Viewer() override;

    /// The window that the tools are told; at first null, none.
    void setWindow(HWND window) { object_->setWindow(window); }

    /// Pen events, in world units; `button` is the one that goes down or up, of a move one that is
    /// down or 0. They go to the tool of the newest context whose object is the editor's effect;
    /// from the press of a button until all buttons are up, to the tool in which the first one went
    /// down.
    ///
    /// Give the tool's status, of which only a failure has a meaning, and S_FALSE if there is no
    /// tool. A press is never refused, so a host's own gestures come first or use other buttons.
    HRESULT penDown(const tagVWPENEVENT& event);
    HRESULT penMove(const tagVWPENEVENT& event);
    HRESULT penUp(const tagVWPENEVENT& event);
    /// Ends a drag (the mouse grab is lost, Esc): pen-up at the last position for the buttons that
    /// are down.
    void releasePen();

    /// Draws the tools over the picture, in the order of their contexts. Gives the first failure of
    /// a tool; the others are drawn all the same.
    HRESULT render(IViewerSurface& surface);

private:
    void tellTime() override;
    ComPtr<IDSInteractiveTool> toolForPen() const;

    ComPtr<ViewerObject> object_;
};

}  // namespace ruvex::runtime
