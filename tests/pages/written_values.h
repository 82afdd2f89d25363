// Notes the writes to the properties of an effect, in their order.

#pragma once

#include <utility>
#include <vector>

#include "parameters/parameter_table.h"
#include "sdk/com/com_object.h"
#include "sdk/properties/properties.h"

namespace ruvex::test {

/// The parameters that are written while this lives. Notes what the observers of the effect are
/// told, one value each.
class WrittenValues {
public:
    using Write = std::pair<ParameterId, double>;

    explicit WrittenValues(IDSProperties& properties) : properties_(&properties) {
        properties_->Advise(observer_.get(), &cookie_);
    }
    ~WrittenValues() { properties_->Unadvise(cookie_); }
    WrittenValues(const WrittenValues&) = delete;
    WrittenValues& operator=(const WrittenValues&) = delete;

    const std::vector<Write>& writes() const { return observer_->writes; }

private:
    class Observer final : public ComObject<IDSPropertyObserver> {
    public:
        HRESULT PropertyChanged(const GUID& id, const DSVARIANT* value, IUnknown*, const DSPARAMS*,
                                unsigned short) override {
            const ParameterRow* const row = findParameter(id);
            if (!row || !value) return S_OK;
            const double number =
                value->vt == VT_R8 ? value->dblVal : static_cast<double>(value->lVal);
            writes.emplace_back(row->id, number);
            return S_OK;
        }

        std::vector<Write> writes;
    };

    ComPtr<IDSProperties> properties_;
    ComPtr<Observer> observer_ = ComPtr<Observer>::attach(new Observer);
    ULONG cookie_ = 0;
};

}  // namespace ruvex::test
