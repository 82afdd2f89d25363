#include "sdk/registry/registry_contents.h"

namespace {

class MemoryRegistry final : public DSRegistryStore {
public:
    HRESULT addClass(const DSRegisteredClass& entry) override {
        return ruvex::addClass(contents_, entry);
    }
    HRESULT removeClass(const GUID& classId) override {
        return ruvex::removeClass(contents_, classId);
    }
    HRESULT addFamilies(std::span<const DSRegisteredFamily> entries) override {
        return ruvex::addFamilies(contents_, entries);
    }
    HRESULT removeFamilies(const GUID& classId, std::span<const GUID> families) override {
        return ruvex::removeFamilies(contents_, classId, families);
    }
    HRESULT read(DSRegistryContents& contents) override {
        contents = contents_;
        return S_OK;
    }

private:
    DSRegistryContents contents_;
};

}  // namespace

std::shared_ptr<DSRegistryStore> DSMemoryRegistry() {
    return std::make_shared<MemoryRegistry>();
}
