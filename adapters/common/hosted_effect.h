// The effect behind the pictures of another host.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "adapters/common/picture_rows.h"
#include "adapters/common/render_session.h"
#include "looks/look.h"
#include "runtime/project.h"

namespace ruvex::adapters {

/// Which alpha a result has.
enum class PlugInAlpha {
    Input,   ///< That of the input; colours are the effect's.
    Effect,  ///< The effect's, which makes parts of a picture transparent.
};

/// All that a frame depends on but its picture.
struct FrameRequest {
    std::int64_t frame = 0;                ///< Its time is frame / frameRate.
    double frameRate = 25.0;               ///< Frames per second, above 0.
    std::string look{};                    ///< A name or a path; empty for the defaults.
    std::vector<looks::Setting> values{};  ///< Set over the look.
    PlugInAlpha alpha = PlugInAlpha::Input;
};

/// One effect with the module that belongs to this plug-in. It is cheap to make: the module is
/// loaded for the first frame. One thread uses it at a time; any number of them render at once.
class HostedEffect {
public:
    HostedEffect();
    ~HostedEffect();
    HostedEffect(const HostedEffect&) = delete;
    HostedEffect& operator=(const HostedEffect&) = delete;

    /// Renders a frame of `source` into `target`, a picture of the same size, which may be the same
    /// memory. The project frame is that of the look, or else it has the picture's size. The result
    /// depends on the arguments alone, not on earlier frames. Where the effect asks
    /// for another frame of the clip, it gets this picture. Where the effect cannot render, the
    /// picture is copied, a message goes to standard error, and the answer is false. Never throws.
    bool render(const FrameRequest& request, const SourceRows& source,
                const TargetRows& target) noexcept;

private:
    class CurrentPicture;

    void renderOrThrow(const FrameRequest& request, const SourceRows& source,
                       const TargetRows& target);
    void readLook(const std::string& name);
    runtime::Project projectFor(const FrameRequest& request, const SourceRows& source) const;

    std::shared_ptr<CurrentPicture> current_;
    RenderSession session_;
    std::string lookName_;  ///< The name or path of `look_`.
    looks::Look look_;
};

}  // namespace ruvex::adapters
