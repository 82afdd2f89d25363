// A session with the effect that renders pictures with complete states of the parameters.

#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "looks/parameter_change.h"
#include "parameters/ruvex_interface.h"
#include "runtime/effect_session.h"
#include "runtime/kept_image.h"
#include "sdk/images/memory_image.h"

namespace ruvex::adapters {

/// The rows of each picture are divided into this number of shares, on which pictures depend: a
/// plug-in gives the same pictures on every machine, those of `ruvex render --workers 8`.
inline constexpr int kShares = 8;

/// Throws runtime::Error for a picture with a side below 1 or above looks::kLongestProjectSide.
void checkPictureSize(int width, int height);

/// One effect of the module that belongs to this plug-in; the module is loaded when the session is
/// first opened. One thread at a time.
class RenderSession {
public:
    /// `provider` serves the clip's other frames.
    explicit RenderSession(std::shared_ptr<runtime::InputProvider> provider);

    /// Makes the effect for a project, unless it has this one already. Throws runtime::Error, and
    /// the session then keeps what it had.
    void open(const runtime::Project& project);

    /// Gives every parameter its state: the defaults with `changes`. Throws runtime::Error. The
    /// session must be open, as below.
    void setParameters(std::vector<looks::ParameterChange> completeState);

    /// Renders an image, into which the effect may write, to one of its size and format, which
    /// serves the next render again unless the caller still holds it. Throws runtime::Error.
    ComPtr<CDSMemoryImage> render(double seconds, const ComPtr<CDSMemoryImage>& input);

    /// The values of the frame at that time. Throws runtime::Error.
    FrameValues valuesAt(double seconds) const;

    /// The last one that it was opened for.
    const runtime::Project& project() const { return project_; }

private:
    std::shared_ptr<runtime::InputProvider> provider_;
    runtime::Project project_{};
    std::optional<runtime::EffectSession> session_;
    runtime::KeptImage output_;
    std::vector<looks::ParameterChange> state_;  ///< Of the session; empty where it is unknown.
};

}  // namespace ruvex::adapters
