// The crop box of one effect in one viewer of the host.

#pragma once

#include <optional>

#include "adapters/openfx/interact_action.h"
#include "adapters/openfx/overlay/crop_box.h"

namespace ruvex::openfx {

/// What the host's objects behind an overlay say at one time.
struct CropView {
    PicturePlace place{};
    Crop crop{};
};

/// An overlay draws the lines and passes the pen on to them. The values in the host decide where
/// the lines are; a drag sets them when the pen goes up, as one edit.
///
/// All overlays of the process share one box, which belongs to the first thread that draws or uses
/// the pen, the one of the host's windows. Other threads see nothing.
class CropInteract {
public:
    CropInteract();
    ~CropInteract();
    CropInteract(const CropInteract&) = delete;
    CropInteract& operator=(const CropInteract&) = delete;

    // kOfxStatOK if the overlay has drawn or has used the pen; else kOfxStatReplyDefault.

    OfxStatus draw(const InteractAction& action);
    OfxStatus penDown(const InteractAction& action);
    OfxStatus penMotion(const InteractAction& action);
    OfxStatus penUp(const InteractAction& action);
    /// A drag that is under way ends where the pen is.
    OfxStatus loseFocus(const InteractAction& action);

private:
    CropBox* boxFor(const CropView& view) const;
    bool isDragging() const;
    OfxStatus endDrag(const InteractAction& action, std::optional<OfxPointD> pen);
};

}  // namespace ruvex::openfx
