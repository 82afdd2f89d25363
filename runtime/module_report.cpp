#include "runtime/module_report.h"

#include <iterator>

#include "runtime/effect_session.h"
#include "runtime/error.h"
#include "sdk/com/utf8.h"
#include "sdk/registry/registry.h"
#include "sdk/resources/load_text.h"

namespace ruvex::runtime {
namespace {

/// The entries that a registration makes.
DSRegistryContents registrationOf(const Module& module) {
    struct Scratch {
        std::shared_ptr<DSRegistryStore> before = DSUseRegistry(DSMemoryRegistry());
        ~Scratch() { DSUseRegistry(before); }
    } const scratch;
    module.registerClasses();
    DSRegistryContents entered;
    require(DSReadRegistry(&entered), "cannot read back the registration");
    return entered;
}

bool serves(const Module& module, const GUID& classId) {
    try {
        module.classFactory(classId);
        return true;
    } catch (const StatusError& error) {
        if (error.status() == CLASS_E_CLASSNOTAVAILABLE) return false;
        throw;
    }
}

void addRegistration(const Module& module, ModuleReport& report) {
    const DSRegistryContents entered = registrationOf(module);
    for (const DSRegisteredClass& entry : entered.classes) {
        report.classes.push_back({entry.classId, entry.stringId, toUtf8(entry.description),
                                  serves(module, entry.classId)});
    }
    for (const DSRegisteredFamily& entry : entered.families) {
        report.families.push_back({entry.family, entry.version, toUtf8(entry.name)});
    }
}

void addTool(IDSPlugIn& plugIn, ModuleReport& report) {
    DSTOOLINFO tool;
    require(plugIn.GetToolInfo(&tool), "the effect does not say how it is listed");
    report.name = toUtf8(tool.name);
    report.description = toUtf8(tool.description);
}

void addFormats(IDSImageEffect& effect, ModuleReport& report) {
    const ModuleReport::Format known[] = {{MFIF_RGBA_RAW_32, "MFIF_RGBA_RAW_32"},
                                          {MFIF_RGBA_S2_14, "MFIF_RGBA_S2_14"},
                                          {MFIF_A_RAW_8, "MFIF_A_RAW_8"}};
    for (const auto& format : known) {
        if (effect.TestFormat(format.format) == S_OK) report.formats.push_back(format);
    }
}

std::string typeName(VARTYPE type) {
    if (type == VT_R8) return "real";
    return type == VT_BOOL ? "bool" : "int";
}

void addParameters(IDSProperties& properties, ModuleReport& report) {
    ULONG count = 0;
    require(properties.GetPropertyCount(&count), "the effect does not list its parameters");
    for (ULONG i = 0; i < count; ++i) {
        const CDSParamDef* definition = nullptr;
        require(properties.GetPropertyDef(i, &definition), "a parameter has no definition");
        report.parameters.push_back({definition->id,
                                     toUtf8(loadText(definition->module, definition->nameId)),
                                     typeName(definition->type), definition->animatable()});
    }
}

template <class T>
ComPtr<T> interfaceOf(const ComPtr<IDSImageEffect>& effect, const GUID& id) {
    auto found = effect.query<T>(id);
    if (!found) throw Error("the effect lacks the interface " + toText(id));
    return found;
}

}  // namespace

ModuleReport describeModule(const Module& module) {
    ModuleReport report;
    report.file = module.file();
    addRegistration(module, report);
    ComPtr<IDSImageEffect> effect;
    require(module.classFactory(kRuvexClassId)
                ->CreateInstance(nullptr, IID_IDSImageEffect, effect.putVoid()),
            "cannot make the effect");
    addTool(*interfaceOf<IDSPlugIn>(effect, IID_IDSPlugIn), report);
    addFormats(*effect, report);
    addParameters(*interfaceOf<IDSProperties>(effect, IID_IDSProperties), report);
    return report;
}

}  // namespace ruvex::runtime
