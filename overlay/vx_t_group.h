// An object with children, without a coordinate system of its own.

#pragma once

#include "overlay/vx_t_container.h"

namespace ruvex {

/// Its bounds are those of its children, and it can be neither moved nor sized. It has no pen
/// events of its own. After `addChild` it has bounds if that child has; the next `childChanged`
/// looks at all children.
class VxTGroup : public VxTObject, public VxTContainer {
public:
    enum GroupFlags : std::uint32_t {
        kDrawBackground = 1,
        kUseGlobalGrey = 2,  ///< for the background, rather than `background`
        kSwallowHits = 4,    ///< the empty area hides what lies below it from the pen
    };

    explicit VxTGroup(const char* objectName);
    ~VxTGroup() override;

    VxHit hit(const VxPosition& where, const VxPosition& radius) override;
    void draw() override;
    std::int32_t drag(const VxPosition& where) override;
    std::int32_t penDown(const VxPosition& where) override;
    std::int32_t penUp() override;
    std::int32_t penEnter(const VxPosition& where) override;
    std::int32_t penLeave() override;
    void childChanged(VxTObject* child) override;
    void toLocal(VxPosition& out, const VxPosition& where) override;
    void setManager(VxTManager* newManager) override;
    std::int32_t addChild(VxTObject* child) override;
    std::int32_t removeChild(VxTObject* child) override;
    VxTObject* setFocus(VxTObject* child) override;
    virtual void drawBackground();

    // Both bases have a focus; an unqualified name is the object's.
    using VxTObject::focus;

    VxColour background = paletteGrey;
    std::uint32_t groupFlags = kDrawBackground | kUseGlobalGrey | kSwallowHits;

private:
    /// Takes the bounds of the first child, or widens the group's by those of another.
    void includeBounds(const VxTObject& child, bool isFirst);
};

}  // namespace ruvex
