// What `ruvex render` makes of the pictures that a host's clip gives.

#pragma once

#include <functional>
#include <vector>

#include "jobs/render_job.h"
#include "tests/openfx/host/clip.h"
#include "tests/support/temp_folder.h"

namespace ruvex::ofxhost::test {

using Changes = std::vector<looks::ParameterChange>;

/// The first frames of a clip as raw frames in files, and renders of them with 8 workers. Pictures
/// have whole RGBA bytes, or floats that are whole when multiplied by the white of S2.14.
class ReferenceClip {
public:
    ReferenceClip(const ClipSetup& clip, int frames);

    /// A job over all frames: its alpha is the effect's, and before and after the clip its first
    /// and last frame are shown.
    jobs::RenderJob job(const Changes& changes) const;
    /// The frames of a render, in the format of the clip.
    std::vector<Raster> render(const jobs::RenderJob& job) const;
    std::vector<Raster> render(const Changes& changes) const { return render(job(changes)); }

private:
    std::filesystem::path path(const std::string& name) const;

    files::TempFolder folder_;
    PixelFormat format_;
    OfxRectI bounds_{};
    int frames_;
};

/// One frame of a render.
Raster referenceFrame(const ClipSetup& clip, int frame, const Changes& changes);

/// The changes of a preset, by its name.
Changes presetNamed(const std::string& name);

/// The same pixels with another alpha: that of an opaque picture.
Raster withoutAlpha(Raster raster);

}  // namespace ruvex::ofxhost::test
