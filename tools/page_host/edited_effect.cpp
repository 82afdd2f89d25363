#include "tools/page_host/edited_effect.h"

#include <cstring>
#include <utility>

#include "runtime/error.h"
#include "runtime/images.h"
#include "tools/page_host/module_advice.h"

namespace ruvex::page_host {
namespace {

ComPtr<CDSMemoryImage> imageOf(const runtime::Project& project, const Picture& picture) {
    auto image =
        runtime::makeProjectImage(project, picture.width, picture.height, MFIF_RGBA_RAW_32);
    std::memcpy(image->bytes(), picture.bytes.data(), picture.bytes.size());
    return image;
}

bool isOpaque(const Picture& picture) {
    for (std::size_t i = 3; i < picture.bytes.size(); i += 4) {
        if (picture.bytes[i] != 255) return false;
    }
    return true;
}

void makeOpaque(Picture& picture) {
    for (std::size_t i = 3; i < picture.bytes.size(); i += 4) picture.bytes[i] = 255;
}

/// Throws runtime::Error that says what the user can do.
runtime::EffectSession openSession(runtime::EffectSession::Setup setup) {
    try {
        return runtime::EffectSession(std::move(setup));
    } catch (const runtime::StatusError& error) {
        const std::string advice = moduleAdvice(error.status());
        if (advice.empty()) throw;
        throw runtime::Error(advice + "\n\n(" + error.what() + ")");
    }
}

}  // namespace

class EditedEffect::Observer final : public ComObject<IDSPropertyObserver> {
public:
    explicit Observer(std::function<void()> changed) : changed_(std::move(changed)) {}

    HRESULT STDMETHODCALLTYPE PropertyChanged(const GUID&, const DSVARIANT*, IUnknown*,
                                              const DSPARAMS*, unsigned short) override {
        changed_();
        return S_OK;
    }

private:
    std::function<void()> changed_;
};

class EditedEffect::StillInput final : public runtime::InputProvider {
public:
    StillInput(std::shared_ptr<const Picture> picture, const runtime::Project& project)
        : picture_(std::move(picture)), project_(project) {}

    ComPtr<IDSImage> imageAt(double) override {
        return ComPtr<IDSImage>(imageOf(project_, *picture_).get());
    }

private:
    std::shared_ptr<const Picture> picture_;
    runtime::Project project_;
};

EditedEffect::EditedEffect(Picture picture, std::function<void()> changed)
    : picture_(std::make_shared<const Picture>(std::move(picture))),
      opaque_(isOpaque(*picture_)),
      project_{.width = picture_->width, .height = picture_->height, .frameRate = kFrameRate},
      session_(openSession(
          {.project = project_, .provider = std::make_shared<StillInput>(picture_, project_)})),
      editor_(session_),
      observer_(ComPtr<Observer>::attach(new Observer(std::move(changed)))) {
    runtime::require(session_.properties().Advise(observer_.get(), &cookie_),
                     "cannot observe the effect's properties");
}

EditedEffect::~EditedEffect() {
    session_.properties().Unadvise(cookie_);
}

Picture EditedEffect::render() {
    runtime::RenderRequest request;
    request.seconds = editor_.time();
    const auto output = runtime::makeProjectImage(project_, width(), height(), MFIF_RGBA_RAW_32);
    request.output = output;
    session_.render(request);
    Picture result(width(), height());
    std::memcpy(result.bytes.data(), output->bytes(), result.bytes.size());
    if (opaque_) makeOpaque(result);
    return result;
}

std::vector<runtime::PropertyState> EditedEffect::states() {
    return runtime::readStates(session_.properties());
}

void EditedEffect::replaceStates(const std::vector<runtime::PropertyState>& states) {
    const DSContentScope project = session_.enter();
    runtime::writeStates(session_.properties(), states);
    editor_.undoStack().clear();
}

}  // namespace ruvex::page_host
