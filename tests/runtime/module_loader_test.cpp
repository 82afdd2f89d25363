#include "runtime/module_loader.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/error.h"
#include "tests/runtime/copy_module.h"
#include "tests/support/scripted_registry.h"

namespace ruvex::runtime::test {
namespace {

using ::testing::HasSubstr;

std::string failureOf(const std::filesystem::path& file) {
    try {
        Module::load(file);
        return "loaded";
    } catch (const Error& error) {
        return error.what();
    }
}

ComPtr<IUnknown> createEffect() {
    ComPtr<IUnknown> object;
    CoCreateInstance(kRuvexClassId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.putVoid());
    return object;
}

TEST(ModuleLoader, ServesItsClassesWhileItIsLoaded) {
    EXPECT_FALSE(createEffect());
    auto module = Module::load(moduleFile("copy_module"));
    EXPECT_TRUE(module->classFactory(kRuvexClassId));
    EXPECT_TRUE(createEffect());
    module.reset();
    EXPECT_FALSE(createEffect());
}

TEST(ModuleLoader, LoadsAFileOnceAndAttachesItOnce) {
    const auto first = Module::load(moduleFile("copy_module"));
    const auto second = Module::load(moduleFile("copy_module").parent_path() / "." /
                                     moduleFile("copy_module").filename());
    EXPECT_EQ(first->instance(), second->instance());
    std::string problem;
    // The system counts this as one use more of the same file, attached through DllMain again.
    const auto look = DSDynamicLibrary::load(moduleFile("copy_module"), problem);
    ASSERT_TRUE(look) << problem;
    auto* attached = reinterpret_cast<int (*)()>(look->find("copyModuleAttached"));
    ASSERT_TRUE(attached);
    EXPECT_EQ(attached(), 2);
}

TEST(ModuleLoader, RefusesToUnloadWhileObjectsLive) {
    auto module = Module::load(moduleFile("copy_module"));
    EXPECT_TRUE(module->canUnload());
    auto object = createEffect();
    EXPECT_FALSE(module->canUnload());
    EXPECT_THROW(module->unload(), Error);
    EXPECT_TRUE(module->loaded());
    object.reset();
    module->unload();
    EXPECT_FALSE(module->loaded());
    EXPECT_THROW(module->canUnload(), Error);
    EXPECT_THROW(module->unload(), Error);
    EXPECT_FALSE(createEffect());
}

TEST(ModuleLoader, RefusesToUnloadWhileTheServerIsLocked) {
    const auto module = Module::load(moduleFile("copy_module"));
    const auto factory = module->classFactory(kRuvexClassId);
    factory->LockServer(TRUE);
    EXPECT_FALSE(module->canUnload());
    EXPECT_THROW(module->unload(), Error);
    factory->LockServer(FALSE);
    EXPECT_TRUE(module->canUnload());
}

TEST(ModuleLoader, AModuleInUseStaysAndIsFoundAgain) {
    auto module = Module::load(moduleFile("copy_module"));
    const HINSTANCE instance = module->instance();
    auto object = createEffect();
    module.reset();
    // The object's code is still there.
    EXPECT_TRUE(object.query<IDSImageEffect>());
    module = Module::load(moduleFile("copy_module"));
    EXPECT_EQ(module->instance(), instance);
    object.reset();
    EXPECT_TRUE(module->canUnload());
}

TEST(ModuleLoader, UnknownClassesAreNamed) {
    const auto module = Module::load(moduleFile("copy_module"));
    try {
        module->classFactory(guidFromText("01234567-0000-0000-0000-000000000000"));
        FAIL();
    } catch (const StatusError& error) {
        EXPECT_EQ(error.status(), CLASS_E_CLASSNOTAVAILABLE);
        EXPECT_THAT(error.what(), HasSubstr("01234567-0000-0000-0000-000000000000"));
        EXPECT_THAT(error.what(), HasSubstr("0x80040111"));
    }
}

TEST(ModuleLoader, RegistersAndUnregisters) {
    const ruvex::test::UsedRegistry used(DSMemoryRegistry());
    const auto module = Module::load(moduleFile("copy_module"));
    module->registerClasses();
    ASSERT_EQ(used.contents().classes.size(), 1u);
    EXPECT_EQ(used.contents().classes[0].module, moduleFile("copy_module"));
    module->unregisterClasses();
    EXPECT_TRUE(used.contents().empty());
    EXPECT_THROW(module->unregisterClasses(), StatusError);
}

TEST(ModuleLoader, FindsARegisteredModuleByItsClass) {
    const ruvex::test::UsedRegistry used(DSMemoryRegistry());
    EXPECT_THROW(Module::loadRegistered(kRuvexClassId), Error);
    EXPECT_THROW(Module::loadDefault(), Error) << "no module lies beside this test";
    const auto file = moduleFile("copy_module");
    Module::load(file)->registerClasses();
    EXPECT_EQ(Module::loadRegistered(kRuvexClassId)->file(), file);
    EXPECT_EQ(Module::loadDefault()->file(), file);
    used->addClass({kRuvexClassId, 2, L"", "/nowhere/V_Ruvex.so"});
    EXPECT_THROW(Module::loadRegistered(kRuvexClassId), Error) << "it was moved since";
}

TEST(ModuleLoader, SaysWhatIsWrongWithAFile) {
    EXPECT_THAT(failureOf("/nowhere/V_Ruvex.so"), HasSubstr("/nowhere/V_Ruvex.so"));
    EXPECT_THAT(failureOf(moduleFile("copy_module_incomplete")), HasSubstr("DllRegisterServer"));
    EXPECT_THAT(failureOf(moduleFile("copy_module_refusing")), HasSubstr("DllMain returned 0"));

    const auto text = std::filesystem::path(::testing::TempDir()) / "not_a_module.so";
    std::ofstream(text) << "words\n";
    EXPECT_THAT(failureOf(text), HasSubstr("cannot load the module"));
    std::filesystem::remove(text);
}

/// A second name for one of the test's modules, for as long as it is needed.
class Link {
public:
    explicit Link(std::filesystem::path path, const std::string& module = "copy_module")
        : path_(std::move(path)) {
        std::filesystem::create_directories(path_.parent_path());
        std::filesystem::remove(path_);
        std::filesystem::create_symlink(moduleFile(module), path_);
    }
    ~Link() { std::filesystem::remove(path_); }

private:
    std::filesystem::path path_;
};

TEST(ModuleLoader, TheDefaultLiesBesideTheProgramOrInLib) {
    const auto beside = moduleFile("V_Ruvex");
    const auto inLib = beside.parent_path().parent_path() / "lib" / "ruvex" / beside.filename();
    try {
        Module::loadDefault();
        FAIL() << "there is a module where the test expects none";
    } catch (const Error& error) {
        EXPECT_THAT(error.what(), HasSubstr(beside.string()));
        EXPECT_THAT(error.what(), HasSubstr(inLib.string()));
    }
    for (const auto& place : {beside, inLib}) {
        const Link link(place);
        EXPECT_EQ(Module::loadDefault()->file(), moduleFile("copy_module"));
    }
}

TEST(ModuleLoader, ALibrarysDefaultLiesBesideTheLibraryAndNotBesideTheProgram) {
    const auto folder = programFolder() / "plug_in";
    std::string problem;
    const auto library =
        DSDynamicLibrary::load(folder / DSDynamicLibrary::fileName("plug_in"), problem);
    ASSERT_TRUE(library) << problem;
    void* const address = library->find("plugInsModule");
    ASSERT_TRUE(address);
    const auto plugInsModule = reinterpret_cast<const char* (*)()>(address);

    const auto beside = folder / DSDynamicLibrary::fileName("V_Ruvex");
    const auto inLib = programFolder() / "lib" / "ruvex" / beside.filename();
    const auto nextToFolder = programFolder() / "ruvex" / beside.filename();
    const Link besideTheProgram(moduleFile("V_Ruvex"), "copy_module_incomplete");
    const ruvex::test::UsedRegistry used(DSMemoryRegistry());
    EXPECT_THAT(plugInsModule(), HasSubstr(beside.string()));
    EXPECT_THAT(plugInsModule(), HasSubstr(inLib.string()));
    EXPECT_THAT(plugInsModule(), HasSubstr(nextToFolder.string()));
    for (const auto& place : {beside, inLib, nextToFolder}) {
        const Link link(place);
        EXPECT_EQ(plugInsModule(), moduleFile("copy_module"));
        EXPECT_EQ(Module::loadBeside(address)->file(), moduleFile("copy_module"));
    }
    used->addClass({kRuvexClassId, 2, L"", moduleFile("copy_module")});
    EXPECT_EQ(plugInsModule(), moduleFile("copy_module")) << "the registered one comes last";
}

TEST(ModuleLoader, AnAddressOfNoFileLeavesTheRegisteredModule) {
    const ruvex::test::UsedRegistry used(DSMemoryRegistry());
    const auto onTheHeap = std::make_unique<char>();
    EXPECT_EQ(DSDynamicLibrary::fileOfCode(onTheHeap.get()), "");
    EXPECT_THROW(Module::loadBeside(onTheHeap.get()), Error);
    used->addClass({kRuvexClassId, 2, L"", moduleFile("copy_module")});
    EXPECT_EQ(Module::loadBeside(onTheHeap.get())->file(), moduleFile("copy_module"));
}

TEST(ModuleLoader, AFailedLoadCanBeTriedAgain) {
    EXPECT_THROW(Module::load(moduleFile("copy_module_incomplete")), Error);
    EXPECT_THROW(Module::load(moduleFile("copy_module_incomplete")), Error);
    EXPECT_FALSE(createEffect());
}

}  // namespace
}  // namespace ruvex::runtime::test
