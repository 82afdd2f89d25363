#include "runtime/effect_session.h"

#include <string>
#include <utility>

#include "runtime/coordinate_manager.h"
#include "runtime/error.h"
#include "runtime/property_value.h"

namespace ruvex::runtime {

namespace {

std::string frameAt(double seconds) {
    return "the frame at " + std::to_string(seconds) + " s";
}

/// Throws for an input of a render that the effect refuses.
void requireTaken(HRESULT status, const char* input) {
    if (FAILED(status)) throw StatusError(std::string("the effect refuses its ") + input, status);
}

template <class T>
ComPtr<T> queryOrThrow(IUnknown& object, const GUID& id, const char* what) {
    ComPtr<T> result;
    require(object.QueryInterface(id, result.putVoid()),
            std::string("the effect has no interface for ") + what);
    return result;
}

/// From this module, or from the one that CoCreateInstance finds if there is none.
HRESULT createObject(const Module* module, const GUID& classId, const GUID& id, void** out) {
    if (module) return module->classFactory(classId)->CreateInstance(nullptr, id, out);
    return CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, id, out);
}

ComPtr<IDSImageEffect> makeEffect(const Module* module, const GUID& classId) {
    ComPtr<IDSImageEffect> effect;
    require(createObject(module, classId, IID_IDSImageEffect, effect.putVoid()),
            "cannot make the effect " + toText(classId));
    return effect;
}

}  // namespace

struct EffectSession::State {
    Setup setup;
    DSContent content;
    ComPtr<FrameServer> server;
    ComPtr<IDSImageEffect> effect;
    ComPtr<IDSProperties> properties;
    DSIMAGEEFFECTINFO info;
    // Of the last render, for the next one of the same size.
    ComPtr<IDSCoordMan> coordinates;
    LONG width = 0;
    LONG height = 0;

    explicit State(Setup given)
        : setup(std::move(given)),
          content(contentOf(setup.project)),
          server(FrameServer::create(setup.provider,
                                     [stop = setup.stop] { return stop.stop_requested(); })) {}

    /// Releasing the effect may end it, for which its project is current as in every call.
    ~State() {
        const DSContentScope scope(content);
        properties.reset();
        effect.reset();
    }

    State(const State&) = delete;
    State& operator=(const State&) = delete;

    void take(ComPtr<IDSImageEffect> made) {
        effect = std::move(made);
        properties = queryOrThrow<IDSProperties>(*effect, IID_IDSProperties, "properties");
    }

    void readInfo() {
        info.family = setup.family;
        require(effect->GetImageEffectInfo(&info), "the effect does not describe itself");
    }

    const CDSParamDef* find(const GUID& id) const {
        ULONG count = 0;
        require(properties->GetPropertyCount(&count), "the effect does not list its parameters");
        for (ULONG i = 0; i < count; ++i) {
            const CDSParamDef* definition = nullptr;
            require(properties->GetPropertyDef(i, &definition), "a parameter has no definition");
            if (definition->id == id) return definition;
        }
        return nullptr;
    }

    const CDSParamDef& findOrThrow(const GUID& id) const {
        if (const CDSParamDef* definition = find(id)) return *definition;
        throw Error("the effect has no parameter " + toText(id));
    }

    ComPtr<IDSImage> inputFor(const RenderRequest& request) const {
        if (request.input || !setup.provider) return request.input;
        try {
            return setup.provider->imageAt(request.seconds);
        } catch (...) {
            return {};
        }
    }

    IDSCoordMan* coordinatesFor(const RenderRequest& request, const ComPtr<IDSImage>& input);
    void handIn(const RenderRequest& request);
    void execute(const RenderRequest& request);
};

IDSCoordMan* EffectSession::State::coordinatesFor(const RenderRequest& request,
                                                  const ComPtr<IDSImage>& input) {
    IDSImage* measured = input ? input.get() : request.output.get();
    LONG newWidth = setup.project.width;
    LONG newHeight = setup.project.height;
    if (measured) {
        require(measured->GetSize(&newWidth, &newHeight), "the image to render has no size");
    }
    if (!coordinates || newWidth != width || newHeight != height) {
        coordinates = makeCoordinateManager(setup.project, newWidth, newHeight);
        width = newWidth;
        height = newHeight;
    }
    return coordinates.get();
}

void EffectSession::State::handIn(const RenderRequest& request) {
    const ComPtr<IDSImage> input = inputFor(request);
    IDSCoordMan* const coordMan = coordinatesFor(request, input);
    require(effect->Setup(), "the effect cannot be set up");
    requireTaken(effect->SetSampleRate(setup.project.frameRate), "frame rate");
    requireTaken(effect->SetEffectHost(server.get()), "host");
    requireTaken(effect->SetExecuteContext(server.get()), "execute context");
    requireTaken(effect->SetCoordMan(coordMan), "coordinate manager");
    requireTaken(effect->SetInput(input.get()), "input");
    requireTaken(effect->SetInput2(request.input2.get()), "second input");
    requireTaken(
        effect->SetPixelMask(request.pixelMask.get(), request.maskOffsetX, request.maskOffsetY),
        "mask");
    requireTaken(effect->SetOutput(request.output.get()), "output");
    requireTaken(effect->SetROI(request.region ? &*request.region : nullptr), "region");
    requireTaken(effect->SetProcessingMode(request.fieldMode), "field mode");
}

/// A positive status is a failure too: it means that nothing was done.
void EffectSession::State::execute(const RenderRequest& request) {
    if (const HRESULT status = effect->Verify(); status != S_OK) {
        throw StatusError("the effect cannot render " + frameAt(request.seconds) +
                              " with the images and the region that it was given",
                          status);
    }
    if (const HRESULT status = effect->BeginFrame(request.seconds); FAILED(status)) {
        throw StatusError("cannot begin " + frameAt(request.seconds), status);
    }
    const HRESULT status = effect->Execute(request.seconds);
    effect->EndFrame();
    if (status != S_OK) throw StatusError("cannot render " + frameAt(request.seconds), status);
}

EffectSession::EffectSession(Setup setup) : state_(std::make_unique<State>(std::move(setup))) {
    const auto scope = enter();
    state_->take(makeEffect(state_->setup.module.get(), state_->setup.classId));
    const auto plugIn = queryOrThrow<IDSPlugIn>(*state_->effect, IID_IDSPlugIn, "plug-ins");
    require(plugIn->Init(), "the effect cannot be initialised");
    state_->readInfo();
}

EffectSession::EffectSession(std::unique_ptr<State> state) : state_(std::move(state)) {}
EffectSession::EffectSession(EffectSession&&) noexcept = default;
EffectSession& EffectSession::operator=(EffectSession&&) noexcept = default;
EffectSession::~EffectSession() = default;

EffectSession EffectSession::clone() const {
    return clone(state_->setup.provider);
}

EffectSession EffectSession::clone(std::shared_ptr<InputProvider> provider) const {
    const auto scope = enter();
    ComPtr<IDSImageEffect> effect;
    require(state_->effect->Clone(IID_IDSImageEffect, effect.putVoid()), "cannot clone the effect");
    Setup setup = state_->setup;
    setup.provider = std::move(provider);
    auto state = std::make_unique<State>(std::move(setup));
    state->take(std::move(effect));
    state->info = state_->info;
    return EffectSession(std::move(state));
}

void EffectSession::setValue(const GUID& id, double value) {
    const auto scope = enter();
    const VARIANT variant = toVariant(state_->findOrThrow(id), value);
    require(state_->properties->ClearKeys(id), "cannot end the animation of " + toText(id));
    require(state_->properties->SetValue(id, 0.0, &variant), "cannot set " + toText(id));
}

void EffectSession::setKeys(const GUID& id, const std::vector<DSKey>& keys) {
    const auto scope = enter();
    state_->findOrThrow(id);
    require(state_->properties->SetKeys(id, keys.data(), static_cast<ULONG>(keys.size())),
            "cannot animate " + toText(id));
}

double EffectSession::value(const GUID& id, double seconds) const {
    const auto scope = enter();
    state_->findOrThrow(id);
    VARIANT value{};
    require(state_->properties->GetValue(id, seconds, &value), "cannot read " + toText(id));
    return fromVariant(value);
}

std::vector<DSKey> EffectSession::keys(const GUID& id) const {
    const auto scope = enter();
    ULONG count = 0;
    require(state_->properties->GetKeys(id, nullptr, 0, &count),
            "cannot read the keys of " + toText(id));
    std::vector<DSKey> keys(count);
    require(state_->properties->GetKeys(id, keys.data(), count, &count),
            "cannot read the keys of " + toText(id));
    return keys;
}

const CDSParamDef* EffectSession::definition(const GUID& id) const {
    const auto scope = enter();
    return state_->find(id);
}

void* EffectSession::ownInterface(const GUID& id) const {
    const auto scope = enter();
    void* found = nullptr;
    if (const HRESULT status = state_->effect->QueryInterface(id, &found); FAILED(status)) {
        throw StatusError("the effect has no interface " + toText(id), status);
    }
    // The session's own reference keeps the effect.
    state_->effect->Release();
    return found;
}

DSContentScope EffectSession::enter() const {
    return DSContentScope(state_->content);
}

void EffectSession::render(const RenderRequest& request) {
    const auto scope = enter();
    // The effect holds no images between frames, after a failed one neither.
    struct Cleanup {
        IDSImageEffect& effect;
        ~Cleanup() { effect.Cleanup(); }
    } const cleanup{*state_->effect};
    state_->server->resetInterrupted();
    state_->handIn(request);
    state_->execute(request);
}

bool EffectSession::interrupted() const {
    return state_->server->interrupted();
}

const DSIMAGEEFFECTINFO& EffectSession::info() const {
    return state_->info;
}

IDSImageEffect& EffectSession::effect() const {
    return *state_->effect;
}

IDSProperties& EffectSession::properties() const {
    return *state_->properties;
}

ComPtr<IUnknown> EffectSession::makeObject(const GUID& classId) const {
    const auto scope = enter();
    ComPtr<IUnknown> object;
    require(createObject(state_->setup.module.get(), classId, IID_IUnknown, object.putVoid()),
            "cannot make an object of the class " + toText(classId));
    return object;
}

}  // namespace ruvex::runtime
