// Objects under the transform of an axis.

#pragma once

#include "overlay/vx_t_2d_axis.h"
#include "overlay/vx_t_container.h"

namespace ruvex {

/// An axis with children. Pen positions and bounds of all children are in the coordinates of the
/// whole transform. Children in `transformed` are drawn under those parts of the transform for
/// which the axis has handles (a group with translate handles alone draws them moved, but neither
/// rotated nor scaled). For children in `fixed` the whole transform is multiplied into the global
/// matrix, and they apply it themselves (`useGlobalMatrix`).
class VxT2DAxisGroup : public VxT2DAxis {
public:
    enum GroupFlags : std::uint32_t {
        kHasAxis = 1,  ///< the axis itself is drawn and hit
    };

    VxT2DAxisGroup(const char* objectName, std::uint32_t handleMask);
    ~VxT2DAxisGroup() override;

    VxHit hit(const VxPosition& where, const VxPosition& radius) override;
    void draw() override;
    void enterLocal(const VxPosition& where, const VxPosition& radius) override;
    void leaveLocal() override;
    void childChanged(VxTObject* child) override;
    void setManager(VxTManager* newManager) override;
    std::int32_t addChild(VxTObject* child) override;
    std::int32_t removeChild(VxTObject* child) override;
    VxTObject* setFocus(VxTObject* child) override;
    void getExtent(VxExtent& out) override;

    std::uint32_t groupFlags = kHasAxis;
    bool drawGlobal = false;  ///< Draws the axis under the global matrix.
    bool addToFixed = false;  ///< `addChild` adds to `fixed`, else to `transformed`.
    /// The extent of the children, in the coordinates of the transform. Empty if there are no
    /// children or one has no bounds.
    VxExtent childBounds;
    VxTContainer transformed;
    VxTContainer fixed;

private:
    void enterTransform();
    VxHit hitList(VxTContainer& list, const VxPosition& local, const VxPosition& localRadius);
    void drawTransformed();
};

}  // namespace ruvex
