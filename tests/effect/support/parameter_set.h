// Parameters by themselves, with keys, for tests of what reads them.

#pragma once

#include <stdexcept>
#include <vector>

#include "host/base/parameter_reader.h"

namespace ruvex::test {

/// The properties of an effect without the effect. Lives on the stack.
class ParameterSet final : public CDSPropertyContainer {
public:
    ParameterSet() = default;
    ParameterSet(const ParameterSet&) = delete;
    ParameterSet& operator=(const ParameterSet&) = delete;
    ~ParameterSet() override = default;

    ParameterSet& set(ParameterId id, double value) {
        ClearKeys(row(id).identifier);
        if (isReal(row(id).kind)) {
            values_.rawReal(id) = value;
        } else {
            values_.integer(id) = static_cast<std::int32_t>(value);
        }
        return *this;
    }
    ParameterSet& animate(ParameterId id, const std::vector<DSKey>& keys) {
        if (SetKeys(row(id).identifier, keys.data(), static_cast<ULONG>(keys.size())) != S_OK) {
            throw std::invalid_argument("keys that no real takes");
        }
        return *this;
    }

    /// Good as long as this set, and until it changes.
    ParameterReader reader(InterruptionRecord* interrupt = nullptr) const {
        return {*this, values_, interrupt};
    }

private:
    const CDSPropertiesMap* GetPropertyMap() override {
        static DSStaticPropertiesMap storage;
        static const std::vector<CDSPropertiesMapEntry> entries = makeEntries();
        return InitStaticPropertyMap(storage, entries);
    }

    static std::vector<CDSPropertiesMapEntry> makeEntries() {
        std::vector<CDSPropertiesMapEntry> entries;
        for (const ParameterRow& r : parameterTable()) {
            CDSParamDef definition{};
            definition.id = r.identifier;
            definition.capabilities = isReal(r.kind) ? DSCAPS_ANIMATABLE : DSCAPS_PLAIN;
            definition.type = isReal(r.kind) ? VT_R8 : VT_I4;
            entries.push_back({definition, memberOf, static_cast<std::uint32_t>(r.id)});
        }
        return entries;
    }
    static void* memberOf(CDSBasePropertyContainer& container, std::uint32_t index) {
        return static_cast<ParameterSet&>(container).values_.member(
            static_cast<ParameterId>(index));
    }

    ParameterValues values_;
};

}  // namespace ruvex::test
