// A property container with animated reals.

#pragma once

#include <optional>
#include <vector>

#include "sdk/properties/base_property_container.h"

/// Stores the animations of reals. Reading a value searches the list of animations, so it is as
/// fast as reading the member while nothing is animated.
class DSSDK_API CDSPropertyContainer : public CDSBasePropertyContainer {
public:
    HRESULT GetValue(const GUID& id, double seconds, VARIANT* value) override;
    HRESULT SetValue(const GUID& id, double seconds, const VARIANT* value) override;
    HRESULT SetKeys(const GUID& id, const DSKey* keys, ULONG count) override;
    HRESULT ClearKeys(const GUID& id) override;
    HRESULT GetKeys(const GUID& id, DSKey* keys, ULONG capacity, ULONG* count) override;
    HRESULT SetStates(const DSPropertyState* states, ULONG count) override;

    /// The animated value at `seconds`, or `memberValue` for a real that is not animated.
    double GetValueDirect(const GUID& id, double memberValue, double seconds) const {
        const DSAnimation* animation = FindAnimation(id);
        return animation ? animation->valueAt(seconds) : memberValue;
    }

    /// The animation of a real, for reading its values at many times; null if it is not animated.
    /// Valid until key frames of this object change.
    const DSAnimation* FindAnimation(const GUID& id) const {
        for (const Animated& animated : animated_) {
            if (animated.id == id) return &animated.animation;
        }
        return nullptr;
    }

    /// Replaces all animations by copies of those of another object of the class.
    void CopyAnimation(const CDSPropertyContainer& source) { animated_ = source.animated_; }

protected:
    CDSPropertyContainer() = default;
    /// Does not copy animations; see `CopyAnimation`.
    CDSPropertyContainer(const CDSPropertyContainer& source) : CDSBasePropertyContainer(source) {}
    ~CDSPropertyContainer() override = default;

    /// Removes all animations without notifying the observers.
    void RemoveAnimations() { animated_.clear(); }

private:
    struct Animated {
        GUID id;
        DSAnimation animation;
    };

    /// Properties and their plain values, which the definitions accept.
    struct PlainValue {
        const CDSPropertiesMapEntry* entry;
        VARIANT value;
    };
    /// All that SetStates changes, prepared so that changing it can't fail.
    struct NewStates {
        std::vector<PlainValue> values;
        std::vector<Animated> animated;
    };

    void store(const GUID& id, DSAnimation animation);
    bool remove(const GUID& id);
    HRESULT prepare(const DSPropertyState& state, NewStates& result);
    void keepOtherAnimations(NewStates& result) const;

    std::vector<Animated> animated_;
};
