// The handles of a transform of the plane.

#pragma once

#include "overlay/vx_t_object.h"

namespace ruvex {

/// A control for a transform: a centre with two axes to translate by, a box with corners and edges
/// to scale by, an arc to rotate by, and a handle for the aspect, which squeezes one direction of
/// the box against the other. It sends DragBegins, ValueChanged and DragEnded with `activeHandle`
/// as the number; DragBegins before any of its values changes. A handler of these messages may take
/// the axis out of the tree, but not destroy it.
///
/// Lengths of handles are multiplied by `uiScale`. The pen's positions are those of the object
/// above. The axes to translate by do not turn with `rotation`; all other handles do.
///
/// Each handle has a colour: red to translate, blue for the box and the aspect, green to rotate.
/// - Axes and box: their lines are stippled in this colour and white while the pen is over them,
///   and white while they are pressed.
/// - Rotation: the line and the arc are stippled in both cases.
/// - Arrow heads have a white outline in both cases, and are filled with white while pressed.
/// - Aspect: its line and its dot are white, never stippled, while it is the active handle; two
///   stippled guides show the directions of X and Y while the pen is over it or it is pressed.
class VxT2DAxis : public VxTObject, public VxMessageSender {
public:
    enum Handle : std::uint32_t {
        kNoHandle = 0,
        kTranslateX = 1,
        kTranslateY = 2,
        kCentre = kTranslateX | kTranslateY,
        kScaleUniform = 4,  ///< the corners of the box
        kScaleX = 8,        ///< its left and right edges
        kScaleY = 16,       ///< its top and bottom edges
        kAnyScale = kScaleUniform | kScaleX | kScaleY,
        kRotate = 32,
        kAspect = 64,
    };
    enum AxisFlags : std::uint32_t {
        kMatricesOutdated = 1,
        kShowName = 2,
        kNoHitTest = 16,  ///< nothing is hit, and the translate axes are not drawn
        kShowsAll = 32,  ///< draws and measures all handles but the aspect's, whatever `handles` is
    };
    /// In units of the tree, before `uiScale`.
    static constexpr float kHandleLength = 37.0f;
    static constexpr float kArcRadius = 32.0f;
    static constexpr std::size_t kTipSize = 256;

    /// `handleMask` says which handles exist. `objectName` is copied; it may be null.
    VxT2DAxis(const char* objectName, std::uint32_t handleMask);
    ~VxT2DAxis() override = default;

    VxHit hit(const VxPosition& where, const VxPosition& radius) override;
    void draw() override;
    std::int32_t drag(const VxPosition& where) override;
    std::int32_t penDown(const VxPosition& where) override;
    std::int32_t penUp() override;
    std::int32_t penEnter(const VxPosition& where) override;
    std::int32_t penLeave() override;
    void drawTip(const VxPosition& where) override;
    void toLocal(VxPosition& out, const VxPosition& where) override;
    void setUiScale(float newScale) override;
    /// The extent of the handles, from which the bounds are taken.
    virtual void getExtent(VxExtent& out);

    /// The tool-tip for the active handle, cut to 255 characters. False if there is none: without a
    /// `tip`, without an active handle, and while the axis is pressed.
    bool getTipText(char (&out)[kTipSize]) const;
    /// Ignored unless both translate handles exist or kShowsAll is set.
    void setCentre(float x, float y);
    /// Takes the object's bounds from `getExtent`.
    void updateBounds();
    /// Brings `matrix` and `inverse` up to date.
    void rebuild();
    /// The factors of the transform on X and Y, `aspect` included.
    VxPosition scaleFactors() const;
    /// Where the aspect's handle is, before `rotation`, from the centre.
    VxPosition aspectHandle() const;
    /// The upper right corner of the scale box, before `rotation`, from the centre.
    VxPosition boxCorner() const;

    VxPosition lastPen;      ///< At the last step of a translation.
    float lastAngle = 0.0f;  ///< Radians: the pen's angle at the last step of a rotation.
    float dragSin = 0.0f;    ///< Of minus `rotation`, when the pen went down.
    float dragCos = 0.0f;
    std::uint32_t handles;
    std::uint32_t activeHandle = kNoHandle;  ///< The one under the pen.
    /// kScaleX if the X handle was taken on the far side of a negative scale; kScaleY likewise.
    std::uint32_t flipped = 0;
    VxPosition centre;
    float scaleX = 1.0f, scaleY = 1.0f, scaleUniform = 1.0f;
    float rotation = 0.0f;  ///< Degrees, anticlockwise.
    float aspect = 0.0f;    ///< -1..1. Above 0 it shrinks Y, below 0 X.
    VxMatrix matrix, inverse;
    std::uint32_t axisFlags = kMatricesOutdated;

protected:
    /// The handles that are drawn and measured.
    std::uint32_t shownHandles() const;
    /// The centre, as far as the handles allow to translate.
    VxPosition shownCentre() const;

private:
    enum class Look { Plain, Hovered, Pressed };

    /// What `aspect` makes of X and Y.
    VxPosition aspectFactors() const;

    VxHit activate(std::uint32_t handle);
    std::uint32_t handleAt(VxPosition fromCentre, const VxPosition& radius);
    std::uint32_t scaleHandleAt(VxPosition turned, const VxPosition& radius);
    bool arcIsAt(VxPosition turned, const VxPosition& radius) const;

    void send(VxMessageId id);
    void transformChanged();
    void dragCentre(const VxPosition& where);
    void dragRotation(const VxPosition& where);
    /// The pen from the centre, turned back by the rotation at the start of the drag.
    VxPosition turnedBack(const VxPosition& where) const;
    void dragUniformScale(VxPosition pen);
    void dragScaleX(VxPosition pen);
    void dragScaleY(VxPosition pen);
    void dragAspect(VxPosition pen);

    Look lookOf(std::uint32_t anyOfHandles) const;
    void drawTurnedHandles() const;
    void drawAspectGuides() const;
    void drawScaleBox() const;
    void drawAspectHandle() const;
    void drawRotateHandle() const;
    void drawCentreDot() const;
    void drawTranslateAxes() const;
    void drawTranslateAxis(std::uint32_t handle, VxPosition direction) const;
    void drawName() const;
    VxColour dotOutline() const;
    static void drawHandleLine(VxPosition from, VxPosition to, const VxColour& ink, Look look);
    void drawHandleArrow(VxPosition headTip, VxPosition direction, float halfWidth,
                         const VxColour& ink, Look look) const;
};

}  // namespace ruvex
