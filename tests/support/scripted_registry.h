// A registry that tests can make fail, and that keeps what it was asked.

#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "sdk/registry/registry.h"

namespace ruvex::test {

/// Over a memory store, which is reached only by calls that are not to fail. Reading is not
/// counted.
class ScriptedRegistry final : public DSRegistryStore {
public:
    enum class Call { AddClass, RemoveClass, AddFamilies, RemoveFamilies };

    /// What the call with this number, from 0 on, answers, doing nothing.
    std::map<std::size_t, HRESULT> failures;
    /// Every call, with the class that it was about.
    std::vector<std::pair<Call, GUID>> calls;

    HRESULT addClass(const DSRegisteredClass& entry) override {
        const HRESULT failure = note(Call::AddClass, entry.classId);
        return FAILED(failure) ? failure : store_->addClass(entry);
    }
    HRESULT removeClass(const GUID& classId) override {
        const HRESULT failure = note(Call::RemoveClass, classId);
        return FAILED(failure) ? failure : store_->removeClass(classId);
    }
    HRESULT addFamilies(std::span<const DSRegisteredFamily> entries) override {
        const HRESULT failure = note(Call::AddFamilies, entries.front().classId);
        return FAILED(failure) ? failure : store_->addFamilies(entries);
    }
    HRESULT removeFamilies(const GUID& classId, std::span<const GUID> families) override {
        const HRESULT failure = note(Call::RemoveFamilies, classId);
        return FAILED(failure) ? failure : store_->removeFamilies(classId, families);
    }
    HRESULT read(DSRegistryContents& contents) override { return store_->read(contents); }

private:
    HRESULT note(Call call, const GUID& classId) {
        calls.emplace_back(call, classId);
        const auto planned = failures.find(calls.size() - 1);
        return planned == failures.end() ? S_OK : planned->second;
    }

    std::shared_ptr<DSRegistryStore> store_ = DSMemoryRegistry();
};

/// The store that is in use as long as this lives.
template <class Store>
class UsedRegistry {
public:
    explicit UsedRegistry(std::shared_ptr<Store> store)
        : store_(std::move(store)), before_(DSUseRegistry(store_)) {}
    ~UsedRegistry() { DSUseRegistry(std::move(before_)); }
    UsedRegistry(const UsedRegistry&) = delete;
    UsedRegistry& operator=(const UsedRegistry&) = delete;

    Store* operator->() const { return store_.get(); }

    DSRegistryContents contents() const {
        DSRegistryContents all;
        store_->read(all);
        return all;
    }

private:
    std::shared_ptr<Store> store_;
    std::shared_ptr<DSRegistryStore> before_;
};

}  // namespace ruvex::test
