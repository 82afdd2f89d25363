#include "runtime/effect_session.h"
#include "runtime/module_report.h"
#include "sdk/registry/registry.h"
#include "sdk/registry/registry_key.h"
#include "tests/windows/checks.h"

namespace ruvex::test {
namespace {

constexpr GUID kMainPage = guidFromText("FF17B06D-625E-467E-8781-A656F61FC4DF");

HRESULT make(const GUID& classId) {
    ComPtr<IUnknown> made;
    return CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, made.putVoid());
}

HRESULT makeInside(IUnknown* outer) {
    ComPtr<IUnknown> made;
    return CoCreateInstance(kRuvexClassId, outer, CLSCTX_INPROC_SERVER, IID_IUnknown,
                            made.putVoid());
}

void checkEntries(Checks& checks) {
    DSRegistryContents all;
    checks.expect(DSReadRegistry(&all) == S_OK, "the registry is read");
    checks.expect(all.classes.size() == 10, "ten classes are registered");
    checks.expect(all.families.size() == 4, "the effect is in four families");
    if (all.classes.empty() || all.families.empty()) return;
    checks.expect(all.classes[0].classId == kRuvexClassId, "the effect comes first");
    checks.expect(all.classes[0].description == L"Osterlin's Ruvex Effect",
                  "the string table describes it");
    checks.expect(all.classes[9].description == L"V_Quaver's main PPG (with edge methods)",
                  "and the last page");
    checks.expect(all.classes[0].module.filename() == L"V_Ruvex.dll", "the module's file is known");
    checks.expect(all.families[0].name == L"V_Ruvex", "the families have the tool's name");
}

void checkObjects(Checks& checks) {
    checks.expect(make(kRuvexClassId) == S_OK, "COM makes the effect");
    checks.expect(make(kMainPage) == S_OK, "and its main page");
    ComPtr<IUnknown> outer;
    CoCreateInstance(kRuvexClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, outer.putVoid());
    checks.expect(makeInside(outer.get()) == CLASS_E_NOAGGREGATION,
                  "an effect cannot be made inside another object");
}

void checkLoader(Checks& checks) {
    const auto module = runtime::Module::loadDefault();
    checks.expect(module->canUnload(), "nothing of the module is in use");
    {
        const auto factory = module->classFactory(kRuvexClassId);
        checks.expect(!module->canUnload(), "a factory is");
        checks.expect(static_cast<bool>(factory.query<IMarshal>()),
                      "it may be called from any thread");
    }
    checks.expect(module->canUnload(), "a module without objects can be unloaded");
    const auto report = runtime::describeModule(*module);
    checks.expect(report.name == "V_Ruvex", "the effect has its name");
    checks.expect(report.classes.size() == 10 && report.formats.size() == 2, "and says what it is");
}

}  // namespace

void checkRegistered(Checks& checks) {
    checkEntries(checks);
    checkObjects(checks);
    checkLoader(checks);
}

void checkUnregistered(Checks& checks) {
    DSRegistryContents all;
    checks.expect(DSReadRegistry(&all) == S_OK && all.empty(), "nothing is registered");
    checks.expect(make(kRuvexClassId) == REGDB_E_CLASSNOTREG, "COM does not know the effect");
    checks.expect(!registryKeyExists(L"Software\\V_Ruvex"), "no key is left");
}

}  // namespace ruvex::test
