// The crop box of the effect's Cropping page, over the picture in a host's viewer.

#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "adapters/openfx/overlay/context_view.h"
#include "adapters/openfx/overlay/crop.h"
#include "adapters/openfx/overlay/tool_class.h"
#include "runtime/editor.h"
#include "runtime/viewer.h"

namespace ruvex::openfx {

/// A picture in the plane of a host's viewer, whose positions have square pixels.
struct PicturePlace {
    double left = 0.0, bottom = 0.0;  ///< The low left corner.
    int width = 0, height = 0;        ///< In pixels.
    double pixelAspect = 1.0;         ///< The width of a pixel over its height, which is 1.

    friend bool operator==(const PicturePlace&, const PicturePlace&) = default;
};

/// An effect of the plug-in's module with its Cropping page in front, whose tool draws the lines
/// and takes the pen: docs/crop-box.md. It renders nothing. The tools of all effects share a
/// process's viewer, so there is one box at a time, for one thread.
class CropBox {
public:
    /// Throws runtime::Error if the module cannot be loaded, or if another thread has a viewer.
    explicit CropBox(const PicturePlace& place);
    CropBox(const CropBox&) = delete;
    CropBox& operator=(const CropBox&) = delete;

    const PicturePlace& place() const { return place_; }

    /// Moves the lines, which during a drag stay where they are. Values that are not finite are
    /// those of the whole picture. Throws runtime::Error.
    void setCrop(const Crop& crop);
    Crop crop() const;

    /// Draws the lines into the current OpenGL context, whose state is as before. False if the view
    /// does not allow it.
    bool draw();

    /// The pen, in positions of the plane. A press takes the lines near it, as near as the last
    /// view that was drawn says, and answers whether there are any: a drag begins. The edges change
    /// when the pen goes up.
    bool press(double x, double y);
    void move(double x, double y);
    void release(double x, double y);
    /// The pen goes up where it was last.
    void release();
    bool isDragging() const { return dragging_; }

    /// Whether lines look different since the last call.
    bool takeRedraw() { return std::exchange(redraw_, false); }

private:
    void end();
    tagVWPENEVENT eventAt(double x, double y, LONG button) const;

    PicturePlace place_;
    bool redraw_ = false;
    bool dragging_ = false;
    // In the order in which they refer to each other.
    std::shared_ptr<runtime::Module> module_;
    ToolClass toolClass_;
    runtime::EffectSession session_;
    runtime::Editor editor_;
    runtime::Viewer viewer_;
    std::unique_ptr<runtime::OpenPage> page_;
};

}  // namespace ruvex::openfx
