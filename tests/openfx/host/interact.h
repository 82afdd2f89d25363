// The viewer's side of an effect's overlay.

#pragma once

#include <memory>
#include <string>

#include "tests/openfx/host/instance.h"

namespace ruvex::ofxhost {

/// What part of the picture the viewer shows, and how large.
struct ViewSetup {
    OfxPointD viewportSize{320.0, 240.0};  ///< In pixels of the screen.
    OfxPointD pixelScale{1.0, 1.0};        ///< Canonical units for a pixel of the screen.
    OfxPointD corner{0.0, 0.0};            ///< The canonical point in the low left corner.
    double time = 0.0;
    OfxPointD renderScale{1.0, 1.0};
};

/// An interact of an instance, which outlives it. Drawing needs a current OpenGL context; the
/// caller sets its viewport and projection.
class Interact {
public:
    /// Whether the description announces an overlay.
    static bool isOffered(const PlugIn& plugIn);

    /// Describes the overlay and makes an instance of it; `status` tells the result.
    Interact(Instance& instance, ViewSetup view);
    ~Interact();
    Interact(const Interact&) = delete;
    Interact& operator=(const Interact&) = delete;

    OfxStatus status() const { return status_; }
    OfxStatus draw();
    /// Pen events at a canonical point: kOfxInteractActionPenDown, -Motion, -Up.
    OfxStatus pen(const char* action, const OfxPointD& point, double pressure = 1.0);
    OfxStatus focus(bool gained);

    int redraws() const { return redraws_; }
    /// Counts a request to draw again.
    void requestRedraw() { ++redraws_; }
    Host& host() const { return properties.host(); }
    OfxInteractHandle handle() const { return handle_.get(); }

    ViewSetup view;
    PropertySet properties;

private:
    PropertySet arguments() const;
    OfxStatus call(const char* action, PropertySet* arguments);

    Instance& instance_;
    OfxPluginEntryPoint* entry_;
    OfxStatus status_ = kOfxStatFailed;
    int redraws_ = 0;
    OwnHandle<HandleKind::Interact, OfxInteractHandle> handle_{this};
};

}  // namespace ruvex::ofxhost
