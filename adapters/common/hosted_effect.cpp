#include "adapters/common/hosted_effect.h"

#include <exception>

#include "adapters/common/message_once.h"
#include "adapters/common/parameter_state.h"
#include "runtime/kept_image.h"

namespace ruvex::adapters {
namespace {

std::uint8_t* pixelsOf(CDSMemoryImage& image) {
    return reinterpret_cast<std::uint8_t*>(image.bytes());
}

}  // namespace

/// Serves the picture at hand for every time.
class HostedEffect::CurrentPicture final : public runtime::InputProvider {
public:
    runtime::Project project{};
    SourceRows source{};

    /// The picture itself.
    ComPtr<CDSMemoryImage> image() { return copyInto(input_); }
    ComPtr<IDSImage> imageAt(double) override { return copyInto(other_); }

private:
    ComPtr<CDSMemoryImage> copyInto(runtime::KeptImage& kept) const {
        const auto& image = kept.take(project, source.width, source.height, MFIF_RGBA_RAW_32);
        readStraight(source, pixelsOf(*image));
        return image;
    }

    runtime::KeptImage input_;
    runtime::KeptImage other_;
};

HostedEffect::HostedEffect() : current_(std::make_shared<CurrentPicture>()), session_(current_) {}
HostedEffect::~HostedEffect() = default;

bool HostedEffect::render(const FrameRequest& request, const SourceRows& source,
                          const TargetRows& target) noexcept {
    if (source.width < 1 || source.height < 1) return false;
    try {
        renderOrThrow(request, source, target);
        return true;
    } catch (const std::exception& error) {
        reportOnce(error.what());
    } catch (...) {
        reportOnce("the frame cannot be rendered");
    }
    copyPicture(source, target);
    return false;
}

void HostedEffect::renderOrThrow(const FrameRequest& request, const SourceRows& source,
                                 const TargetRows& target) {
    checkPictureSize(source.width, source.height);
    readLook(request.look);
    session_.open(projectFor(request, source));
    session_.setParameters(completeState(look_.changes, request.values));
    current_->project = session_.project();
    current_->source = source;
    const double seconds = runtime::frameTime(request.frame, request.frameRate);
    const auto output = session_.render(seconds, current_->image());
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

}  // namespace ruvex::adapters
