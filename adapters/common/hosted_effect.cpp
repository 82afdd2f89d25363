#include "adapters/common/hosted_effect.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "adapters/common/message_once.h"
#include "adapters/common/parameter_state.h"
#include "looks/ruvex_control.h"
#include "runtime/error.h"
#include "runtime/images.h"

namespace ruvex::adapters {
namespace {

std::uint8_t* pixelsOf(CDSMemoryImage& image) {
    return reinterpret_cast<std::uint8_t*>(image.bytes());
}

ComPtr<CDSMemoryImage> imageOf(const runtime::Project& project, const SourceRows& source) {
    auto image = runtime::makeProjectImage(project, source.width, source.height, MFIF_RGBA_RAW_32);
    readStraight(source, pixelsOf(*image));
    return image;
}

void checkSize(const SourceRows& source) {
    if (std::max(source.width, source.height) > looks::kLongestProjectSide) {
        throw runtime::Error("a picture of " + std::to_string(source.width) + "x" +
                             std::to_string(source.height) + " pixels is too large");
    }
}

bool sameProject(const runtime::Project& a, const runtime::Project& b) {
    return a.width == b.width && a.height == b.height && a.frameRate == b.frameRate;
}

/// Prints without throwing: there may be no memory for it.
void report(const char* sentence) noexcept {
    try {
        printOnce(sentence);
    } catch (...) {
    }
}

}  // namespace

/// Serves the picture at hand for every time.
class HostedEffect::CurrentPicture final : public runtime::InputProvider {
public:
    runtime::Project project{};
    SourceRows source{};

    ComPtr<IDSImage> imageAt(double) override { return imageOf(project, source); }
};

HostedEffect::HostedEffect() : current_(std::make_shared<CurrentPicture>()) {}
HostedEffect::~HostedEffect() = default;

bool HostedEffect::render(const FrameRequest& request, const SourceRows& source,
                          const TargetRows& target) noexcept {
    if (source.width < 1 || source.height < 1) return false;
    try {
        renderOrThrow(request, source, target);
        return true;
    } catch (const std::exception& error) {
        report(error.what());
    } catch (...) {
        report("the frame cannot be rendered");
    }
    copyPicture(source, target);
    return false;
}

void HostedEffect::renderOrThrow(const FrameRequest& request, const SourceRows& source,
                                 const TargetRows& target) {
    checkSize(source);
    readLook(request.look);
    openSession(projectFor(request, source));
    setParameters(request.values);
    const double seconds = runtime::frameTime(request.frame, request.frameRate);
    const auto output = renderImage(seconds, source);
    if (request.alpha == PlugInAlpha::Input) takeAlpha(source, pixelsOf(*output));
    writeStraight(pixelsOf(*output), target);
}

void HostedEffect::readLook(const std::string& name) {
    if (name == lookName_) return;
    look_ = readLookOrReport(name);
    lookName_ = name;
}

runtime::Project HostedEffect::projectFor(const FrameRequest& request,
                                          const SourceRows& source) const {
    const auto size = look_.projectSize.value_or(looks::ProjectSize{source.width, source.height});
    return {size.width, size.height, 1.0, request.frameRate};
}

void HostedEffect::openSession(const runtime::Project& project) {
    if (session_ && sameProject(project_, project)) return;
    runtime::EffectSession session(
        {.module = runtime::Module::loadDefault(), .project = project, .provider = current_});
    runtime::require(looks::ruvexControl(session).setWorkerCount(kShares),
                     "cannot set the number of shares");
    session_.emplace(std::move(session));
    state_.clear();
    project_ = project;
}

void HostedEffect::setParameters(const std::vector<looks::Setting>& values) {
    auto state = completeState(look_.changes, values);
    // After a failure the session's state is unknown, and all of it is set again.
    const auto before = std::exchange(state_, {});
    changeState(*session_, before, state);
    state_ = std::move(state);
}

ComPtr<CDSMemoryImage> HostedEffect::renderImage(double seconds, const SourceRows& source) {
    current_->project = project_;
    current_->source = source;
    runtime::RenderRequest request;
    request.seconds = seconds;
    request.input = imageOf(project_, source);
    const auto output =
        runtime::makeProjectImage(project_, source.width, source.height, MFIF_RGBA_RAW_32);
    request.output = output;
    session_->render(request);
    if (looks::ruvexControl(*session_).frameOutcome() == FrameOutcome::OutOfMemory) {
        throw runtime::OutOfMemory("there is not enough memory for the frame");
    }
    return output;
}

}  // namespace ruvex::adapters
