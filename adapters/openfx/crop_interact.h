// The crop box of one effect in one viewer of the host.

#pragma once

#include <optional>

#include "adapters/openfx/interact_action.h"
#include "adapters/openfx/overlay/crop_box.h"

namespace ruvex::openfx {

/// One call of the host for an overlay, which draws the lines and passes the pen on to them. The
/// values in the host decide where the lines are; a drag sets them when the pen goes up, as one
/// edit.
///
/// All overlays of the process share one box, which belongs to the first thread that draws or uses
/// the pen, the one of the host's windows. Other threads see nothing.
class CropInteract {
public:
    explicit CropInteract(const InteractAction& action) : action_(action) {}

    OfxStatus create() const;
    /// Ends a drag without a change of the host.
    OfxStatus destroy() const;

    // kOfxStatOK if the overlay has drawn or has used the pen; else kOfxStatReplyDefault.

    OfxStatus draw() const;
    OfxStatus penDown() const;
    OfxStatus penMotion() const;
    OfxStatus penUp() const;
    /// A drag that is under way ends where the pen is.
    OfxStatus loseFocus() const;

private:
    struct View;

    std::optional<View> view() const;
    CropBox* boxFor(const View& view) const;
    bool isDragging() const;
    OfxStatus endDrag(std::optional<OfxPointD> pen) const;
    void requestRedraw() const;

    InteractAction action_;
};

/// Destroys the box of the process if it belongs to the calling thread. The next overlay that draws
/// makes a new one.
void closeCropBox();

}  // namespace ruvex::openfx
