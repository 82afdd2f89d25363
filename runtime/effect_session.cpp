#include "runtime/effect_session.h"

#include <string>
#include <utility>

#include "runtime/coordinate_manager.h"
#include "runtime/error.h"
#include "runtime/property_value.h"

namespace ruvex::runtime {

namespace {

/// Throws for every status but 0: a positive one means that nothing was done.
void requireDone(HRESULT status, const std::string& what) {
    if (status != S_OK) throw StatusError(what, status);
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

ComPtr<IDSCoordMan> coordinateManagerFor(const Project& project, const RenderRequest& request,
                                         const ComPtr<IDSImage>& input) {
    IDSImage* measured = input ? input.get() : request.output.get();
    LONG width = project.width;
    LONG height = project.height;
    if (measured) require(measured->GetSize(&width, &height), "the image to render has no size");
    return makeCoordinateManager(project, width, height);
}

}  // namespace

struct EffectSession::State {
    Setup setup;
    DSContent content;
    ComPtr<FrameServer> server;
    ComPtr<IDSImageEffect> effect;
    ComPtr<IDSProperties> properties;
    DSIMAGEEFFECTINFO info;

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

    void handIn(const RenderRequest& request);
    void execute(const RenderRequest& request);
};

void EffectSession::State::handIn(const RenderRequest& request) {
    const ComPtr<IDSImage> input = inputFor(request);
    const auto coordinates = coordinateManagerFor(setup.project, request, input);
    const std::string refused = "the effect refuses its ";
    require(effect->Setup(), "the effect cannot be set up");
    require(effect->SetSampleRate(setup.project.frameRate), refused + "frame rate");
    require(effect->SetEffectHost(server.get()), refused + "host");
    require(effect->SetExecuteContext(server.get()), refused + "execute context");
    require(effect->SetCoordMan(coordinates.get()), refused + "coordinate manager");
    require(effect->SetInput(input.get()), refused + "input");
    require(effect->SetInput2(request.input2.get()), refused + "second input");
    require(effect->SetPixelMask(request.pixelMask.get(), request.maskOffsetX, request.maskOffsetY),
            refused + "mask");
    require(effect->SetOutput(request.output.get()), refused + "output");
    require(effect->SetROI(request.region ? &*request.region : nullptr), refused + "region");
    require(effect->SetProcessingMode(request.fieldMode), refused + "field mode");
}

void EffectSession::State::execute(const RenderRequest& request) {
    const std::string frame = "the frame at " + std::to_string(request.seconds) + " s";
    requireDone(effect->Verify(), "the effect cannot render " + frame +
                                      " with the images and the region that it was given");
    require(effect->BeginFrame(request.seconds), "cannot begin " + frame);
    const HRESULT status = effect->Execute(request.seconds);
    effect->EndFrame();
    requireDone(status, "cannot render " + frame);
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
    require(state_->effect->QueryInterface(id, &found),
            "the effect has no interface " + toText(id));
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
