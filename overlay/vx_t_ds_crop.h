// The crop box: four lines over the picture, bound to the crop parameters.

#pragma once

#include "overlay/vx_t_ds_object.h"
#include "overlay/vx_t_rectangle.h"

namespace ruvex {

/// Its limits are the input's rectangle in the project frame, in user units; the properties are
/// percentages of them. The lines reach across the whole of the limits, and can be taken anywhere
/// along their length. During a drag no property is written.
///
/// If the left property is above the right one, the lines swap their names: the left line writes
/// the left property all the same, and the next read sorts them again. If both lines lie on the
/// left border, only the left one can be taken, and it can't pass the other; the page's numbers
/// move them apart. The same holds for bottom and top, at the top border.
class VxTDsCrop final : public VxTDsObject, public VxTCropBox {
public:
    /// Limits are the project frame, until updateOverlay of the effect sets them.
    VxTDsCrop();
    ~VxTDsCrop() override = default;

    std::int32_t propertyChanged(const GUID& id, const DSVARIANT* value) override;
    void timeChanged(double seconds) override;
    /// Writes the properties of the edges in `handle`.
    void writeProperties() override;
    /// Takes the lines from the properties at the current time. Changes nothing if a read fails.
    void readProperties() override;

    VxHit hit(const VxPosition& where, const VxPosition& radius) override;
    void draw() override;
    /// As in VxTRectangle, but the object's bounds are the limits.
    void setRect(float x0, float y0, float x1, float y1) override;

    void setProperties(const GUID& left, const GUID& right, const GUID& bottom, const GUID& top);

    GUID leftProperty{};
    GUID rightProperty{};
    GUID bottomProperty{};
    GUID topProperty{};

private:
    void readAt(double seconds);
    float toX(double percent) const;
    float toY(double percent) const;
};

}  // namespace ruvex
