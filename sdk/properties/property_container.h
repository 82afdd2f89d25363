// Adds animation of reals to a property container.

#pragma once

#include <optional>
#include <vector>

#include "sdk/properties/base_property_container.h"

/// Keeps an animation beside each real that has one. Reading a real that has none costs the same
/// as reading its member, as long as nothing is animated; otherwise a scan over what is.
class DSSDK_API CDSPropertyContainer : public CDSBasePropertyContainer {
public:
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT SetKeys(const GUID& id, const DSKey* keys, ULONG count) override;
    HRESULT ClearKeys(const GUID& id) override;
    HRESULT GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) override;

    /// The animated value at `seconds`, or `memberValue` for a real that is not animated.
    double GetValueDirect(const GUID& id, double memberValue, double seconds) const {
        const DSAnimation* animation = FindAnimation(id);
        return animation ? animation->valueAt(seconds) : memberValue;
    }

    /// The animation of a real, for readers of many times in a row; null for one that has none. It
    /// stays good until keys of this object change.
    const DSAnimation* FindAnimation(const GUID& id) const {
        for (const Animated& animated : animated_) {
            if (animated.id == id) return &animated.animation;
        }
        return nullptr;
    }

    /// Takes over all animations of another object of the class; its own are forgotten.
    void CopyAnimation(const CDSPropertyContainer& source) { animated_ = source.animated_; }

protected:
    CDSPropertyContainer() = default;
    /// Animations do not come along: see `CopyAnimation`.
    CDSPropertyContainer(const CDSPropertyContainer& source) : CDSBasePropertyContainer(source) {}
    ~CDSPropertyContainer() override = default;

    /// Ends all animations without telling the observers.
    void RemoveAnimations() { animated_.clear(); }

private:
    struct Animated {
        GUID id;
        DSAnimation animation;
    };

    void store(const GUID& id, DSAnimation animation);
    bool remove(const GUID& id);

    std::vector<Animated> animated_;
};
