// Where the viewer shows the picture, and which part of the world its window shows.

#pragma once

#include <windows.h>

namespace ruvex::page_host {

/// A position in world units: from the low left corner of the project frame, upwards and to the
/// right. Pixels are square.
struct WorldPoint {
    double x, y;
};

/// The picture in the middle of a window, as large as it fits with a margin, but no larger than its
/// own pixels. The margin lets the pen reach the lines at the picture's border from both sides.
class ViewerLayout {
public:
    /// Around the picture, in pixels of the window: three times the distance from which on the
    /// system takes a movement of the mouse for a drag.
    static int margin();

    ViewerLayout(SIZE window, int pictureWidth, int pictureHeight);

    SIZE window() const { return window_; }
    /// The picture in pixels of the window, from its top left corner.
    const RECT& picture() const { return picture_; }
    /// Pixels of the window for one of the picture.
    double scale() const { return scale_; }

    /// The low left corner of the part of the world that the window shows, and its size.
    WorldPoint worldOrigin() const;
    double worldWidth() const { return window_.cx / scale_; }
    double worldHeight() const { return window_.cy / scale_; }

    /// The world position of the middle of a pixel of the window.
    WorldPoint worldAt(POINT pixel) const;

private:
    SIZE window_;
    double scale_;
    RECT picture_;
};

}  // namespace ruvex::page_host
