// A small object with properties for the tests of undo, and random states for it.

#pragma once

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "runtime/property_state.h"
#include "tests/support/copy_effect.h"

namespace ruvex::runtime::test {

using ruvex::test::CopyEffect;
using ruvex::test::kDelayId;
using ruvex::test::kInvertId;
using ruvex::test::kLiftId;
using ruvex::test::kOldDelayId;

using States = std::vector<PropertyState>;

inline bool sameStates(const States& a, const States& b) {
    return std::ranges::equal(
        a, b, [](const PropertyState& x, const PropertyState& y) { return sameBits(x, y); });
}

inline ComPtr<CopyEffect> makeEditedObject() {
    return ComPtr<CopyEffect>::attach(new CopyEffect);
}

/// Any finite double: very small and very large ones and both zeros are as likely as others.
inline double randomReal(std::mt19937& random) {
    const std::uint64_t high = random();
    const double value = std::bit_cast<double>(high << 32 | random());
    if (!std::isfinite(value) || random() % 8 == 0) return random() % 2 == 0 ? -0.0 : 0.0;
    return value;
}

/// At different times, in their order.
inline std::vector<DSKey> randomKeys(std::mt19937& random, unsigned most) {
    std::vector<DSKey> keys;
    double time = -1.5;
    for (unsigned count = random() % (most + 1); count > 0; --count) {
        time += 0.25 * (1 + random() % 4);
        keys.push_back({time, randomReal(random), static_cast<DSKeyMode>(random() % 3)});
    }
    return keys;
}

/// Counts the notifications of all properties and of single ones.
class ChangeCounter final : public ComObject<IDSPropertyObserver> {
public:
    explicit ChangeCounter(IDSProperties& properties) : properties_(&properties) {
        EXPECT_EQ(properties.Advise(this, &cookie_), S_OK);
    }
    ~ChangeCounter() override { properties_->Unadvise(cookie_); }

    HRESULT PropertyChanged(const GUID& id, const DSVARIANT*, IUnknown*, const DSPARAMS*,
                            unsigned short) override {
        ++(id == GUID_AllProperties ? all : single);
        return S_OK;
    }

    int all = 0;
    int single = 0;

private:
    ComPtr<IDSProperties> properties_;
    ULONG cookie_ = 0;
};

}  // namespace ruvex::runtime::test
