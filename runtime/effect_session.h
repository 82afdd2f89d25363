// One effect object, driven as a host drives it.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

#include "runtime/frame_server.h"
#include "runtime/module_loader.h"
#include "runtime/project.h"
#include "sdk/effect/effect.h"
#include "sdk/effect/object_families.h"
#include "sdk/effect/ruvex_class_id.h"

namespace ruvex::runtime {

/// The time of frame `index` at a rate: index / rate, in seconds.
inline double frameTime(std::int64_t index, double framesPerSecond) {
    return static_cast<double>(index) / framesPerSecond;
}

struct RenderRequest {
    double seconds = 0.0;
    /// The first input at that time; the effect may write into it. If it is null, the session's
    /// provider is asked; if that refuses, the effect is run without an input.
    ComPtr<IDSImage> input;
    ComPtr<IDSImage> input2;
    ComPtr<IDSImage> pixelMask;
    LONG maskOffsetX = 0;
    LONG maskOffsetY = 0;
    /// Receives the picture; required.
    ComPtr<IDSImage> output;
    /// In pixels of the output; without one the whole output is rendered.
    std::optional<DSRECT> region;
    /// 0 whole frame, 1 first field, 2 second field.
    LONG fieldMode = 0;
};

/// An effect object and what its host keeps for it. All that a render depends on belongs to its
/// session: project, worker count, stop. One thread uses a session at a time; any number of
/// sessions render at once. Failures of the effect throw StatusError.
class EffectSession {
public:
    struct Setup {
        /// Null for the module that CoCreateInstance finds: the registered one where the system has
        /// a registry for that, elsewhere one that is loaded.
        std::shared_ptr<Module> module = nullptr;
        /// The session makes it current around each call into the effect.
        Project project = {};
        /// Serves inputs at other times; may be null.
        std::shared_ptr<InputProvider> provider = nullptr;
        /// A requested stop ends the render under way and each later one at its next row. A token
        /// without a source never stops.
        std::stop_token stop = {};
        GUID classId = kRuvexClassId;
        GUID family = DSFAMILY_Filter;
    };

    /// Makes the effect through the module's class factory and initialises it: all parameters have
    /// their defaults. Throws Error for a project that checkProject refuses.
    explicit EffectSession(Setup setup);
    ~EffectSession();
    EffectSession(EffectSession&&) noexcept;
    EffectSession& operator=(EffectSession&&) noexcept;

    /// A session over a clone of the effect as it is now, with the same project, provider and stop.
    /// The clone may outlive this session.
    EffectSession clone() const;
    /// The same over another provider, for a provider that must not be shared.
    EffectSession clone(std::shared_ptr<InputProvider> provider) const;

    /// Sets a parameter to one value for all times and removes its keys. Throws Error for an
    /// unknown identifier and for a value that does not fit the kind: reals are finite, integers
    /// have 32 bits, check boxes are 0 or 1.
    void setValue(const GUID& id, double value);
    /// Replaces the keys of a real; an empty list ends its animation. Throws Error for a property
    /// that cannot be animated and for a time or value that is not finite.
    void setKeys(const GUID& id, const std::vector<DSKey>& keys);
    double value(const GUID& id, double seconds = 0.0) const;
    /// The keys in the order of their times; none for a property that is not animated.
    std::vector<DSKey> keys(const GUID& id) const;
    /// The definition of a property; null for an unknown identifier.
    const CDSParamDef* definition(const GUID& id) const;

    /// An interface that is the effect's own and not the host's: a pointer to it, valid as long as
    /// this session and without a reference of its own. Throws StatusError when the effect has
    /// none.
    void* ownInterface(const GUID& id) const;

    /// Makes the session's project current for the calling thread as long as the result lives, for
    /// calls that go to the effect directly. The session outlives the result.
    DSContentScope enter() const;

    /// Renders one frame: passes the request to the effect, then calls Verify and Execute.
    void render(const RenderRequest& request);
    /// Whether the last render was stopped; its output is then unfinished.
    bool interrupted() const;

    /// The effect's description of itself for the session's family.
    const DSIMAGEEFFECTINFO& info() const;
    /// The effect and its properties, for operations that the session does not offer.
    IDSImageEffect& effect() const;
    IDSProperties& properties() const;

    /// Makes an object of another class of the effect's module, a property page for example. Throws
    /// StatusError. Calls of the object need the project (enter).
    ComPtr<IUnknown> makeObject(const GUID& classId) const;

private:
    struct State;
    explicit EffectSession(std::unique_ptr<State> state);

    std::unique_ptr<State> state_;
};

}  // namespace ruvex::runtime
