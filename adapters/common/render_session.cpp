#include "adapters/common/render_session.h"

#include <algorithm>
#include <string>
#include <utility>

#include "adapters/common/parameter_state.h"
#include "looks/look.h"
#include "looks/ruvex_control.h"
#include "runtime/error.h"

namespace ruvex::adapters {
namespace {

bool sameProject(const runtime::Project& a, const runtime::Project& b) {
    return a.width == b.width && a.height == b.height && a.pixelAspect == b.pixelAspect &&
           a.frameRate == b.frameRate;
}

}  // namespace

void checkPictureSize(int width, int height) {
    const std::string size = std::to_string(width) + "x" + std::to_string(height) + " pixels";
    if (std::min(width, height) < 1) throw runtime::Error("there is no picture of " + size);
    if (std::max(width, height) > looks::kLongestProjectSide) {
        throw runtime::Error("a picture of " + size + " is too large");
    }
}

RenderSession::RenderSession(std::shared_ptr<runtime::InputProvider> provider)
    : provider_(std::move(provider)) {}

void RenderSession::open(const runtime::Project& project) {
    if (session_ && sameProject(project_, project)) return;
    runtime::EffectSession session(
        {.module = runtime::Module::loadDefault(), .project = project, .provider = provider_});
    runtime::require(looks::ruvexControl(session).setWorkerCount(kShares),
                     "cannot set the number of shares");
    session_.emplace(std::move(session));
    state_.clear();
    project_ = project;
}

void RenderSession::setParameters(std::vector<looks::ParameterChange> completeState) {
    // After a failure the session's state is unknown, and all of it is set again.
    const auto before = std::exchange(state_, {});
    changeState(*session_, before, completeState);
    state_ = std::move(completeState);
}

ComPtr<CDSMemoryImage> RenderSession::render(double seconds, const ComPtr<CDSMemoryImage>& input) {
    // The effect writes all pixels of a render without a region.
    const ComPtr<CDSMemoryImage> output =
        output_.take(project_, input->width(), input->height(), input->format());
    runtime::RenderRequest request;
    request.seconds = seconds;
    request.input = input;
    request.output = output;
    session_->render(request);
    if (looks::ruvexControl(*session_).frameOutcome() == FrameOutcome::OutOfMemory) {
        throw runtime::OutOfMemory("there is not enough memory for the frame");
    }
    return output;
}

FrameValues RenderSession::valuesAt(double seconds) const {
    const auto scope = session_->enter();
    FrameValues values{};
    runtime::require(
        looks::ruvexControl(*session_).frameValues(seconds, project_.frameRate, &values),
        "cannot compute the values of the frame");
    return values;
}

}  // namespace ruvex::adapters
