#include "runtime/module_loader.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>

#include "runtime/effect_session.h"
#include "runtime/error.h"
#include "sdk/com/dynamic_library.h"
#include "sdk/registry/registry.h"

namespace ruvex::runtime {

namespace {

using Operation = HRESULT();

/// The cause of a registry failure in words; empty for an unknown one.
std::string registryFailure(HRESULT status) {
    switch (status) {
        case REGDB_E_READREGDB:
            return "; the registry cannot be read";
        case REGDB_E_WRITEREGDB:
            return "; the registry cannot be written";
        case REGDB_E_INVALIDVALUE:
            return "; the registry is damaged, or its file is not a registry";
        case REGDB_E_CLASSNOTREG:
            return "; it was not registered, or only in part; its entries are removed";
        default:
            return "";
    }
}

void requireRegistry(HRESULT status, const std::string& what) {
    if (FAILED(status)) throw StatusError(what + registryFailure(status), status);
}

}  // namespace

/// One loaded file, shared by all Modules that refer to it.
struct Module::Library {
    std::filesystem::path file;
    std::unique_ptr<DSDynamicLibrary> image;
    DSGetClassObject* getClassObject = nullptr;
    Operation* canUnloadNow = nullptr;
    Operation* registerServer = nullptr;
    Operation* unregisterServer = nullptr;
    int users = 0;
};

/// All loaded files of the process. One that is still in use when its last Module goes stays here
/// with no users; the next load of it finds it again.
struct Module::Table {
    std::mutex mutex;
    std::map<std::filesystem::path, std::unique_ptr<Library>> libraries;

    /// Destroyed at the end, or when the plug-in that this is linked into is unloaded; but not
    /// while modules are loaded, since the code of a module that stays in memory may run until the
    /// end.
    static Table& get() {
        struct Holder {
            Table& table = *new Table;
            ~Holder() {
                if (table.libraries.empty()) delete &table;
            }
        };
        static const Holder holder;
        return holder.table;
    }

    Library& find(const std::filesystem::path& file) {
        auto& library = libraries[file];
        if (!library) {
            try {
                library = open(file);
            } catch (...) {
                libraries.erase(file);
                throw;
            }
        }
        return *library;
    }

    /// One user less; without users the library is unloaded, unless its module is in use.
    void leave(Library& library) {
        if (--library.users > 0) return;
        // Asks the module under the table's lock: another thread may be about to make an object.
        if (DSRemoveModule(library.getClassObject, library.canUnloadNow) != S_OK) return;
        libraries.erase(library.file);
    }

private:
    template <class Function>
    static void resolve(const Library& library, const char* name, Function*& function) {
        function = reinterpret_cast<Function*>(library.image->find(name));
        if (!function) {
            throw Error("the module '" + library.file.string() + "' lacks the export " + name);
        }
    }

    static std::unique_ptr<Library> open(const std::filesystem::path& file) {
        if (!std::filesystem::is_regular_file(file)) {
            throw Error("there is no module '" + file.string() + "'");
        }
        auto library = std::make_unique<Library>();
        std::string problem;
        library->file = file;
        library->image = DSDynamicLibrary::load(file, problem);
        if (!library->image) {
            throw Error("cannot load the module '" + file.string() + "': " + problem);
        }
        resolve(*library, "DllGetClassObject", library->getClassObject);
        resolve(*library, "DllCanUnloadNow", library->canUnloadNow);
        resolve(*library, "DllRegisterServer", library->registerServer);
        resolve(*library, "DllUnregisterServer", library->unregisterServer);
        require(DSAddModule(library->getClassObject),
                "cannot add '" + file.string() + "' to the table of loaded modules");
        return library;
    }
};

std::shared_ptr<Module> Module::load(const std::filesystem::path& file) {
    Table& table = Table::get();
    const std::lock_guard lock(table.mutex);
    std::shared_ptr<Module> module(new Module);
    module->library_ = &table.find(std::filesystem::weakly_canonical(file));
    ++module->library_->users;
    return module;
}

std::shared_ptr<Module> Module::loadRegistered(const GUID& classId) {
    DSRegistryContents registered;
    requireRegistry(DSReadRegistry(&registered), "cannot look for a registered module");
    const auto entry = std::ranges::find(registered.classes, classId, &DSRegisteredClass::classId);
    if (entry == registered.classes.end()) {
        throw Error("no module is registered for the class " + toText(classId));
    }
    return load(entry->module);
}

namespace {

constexpr char kHere = 0;

/// The program or library that this code is linked into. Found when it is loaded: its name may be a
/// relative path, which leads elsewhere after the process has changed its working folder.
const std::filesystem::path ownFile = DSDynamicLibrary::fileOfCode(&kHere);

std::shared_ptr<Module> loadBesideFile(const std::filesystem::path& programOrLibrary) {
    const auto folder = programOrLibrary.parent_path();
    if (folder.empty()) return Module::loadRegistered(kRuvexClassId);
    const auto beside = folder / DSDynamicLibrary::fileName("V_Ruvex");
    const auto inLib = folder.parent_path() / "lib" / "ruvex" / beside.filename();
    const auto nextToFolder = folder.parent_path() / "ruvex" / beside.filename();
    for (const auto& file : {beside, inLib, nextToFolder}) {
        if (std::filesystem::is_regular_file(file)) return Module::load(file);
    }
    try {
        return Module::loadRegistered(kRuvexClassId);
    } catch (const Error& error) {
        throw Error("there is no module '" + beside.string() + "', no '" + inLib.string() +
                    "' and no '" + nextToFolder.string() + "', and " + error.what());
    }
}

}  // namespace

std::shared_ptr<Module> Module::loadBeside(const void* code) {
    return loadBesideFile(DSDynamicLibrary::fileOfCode(code));
}

std::shared_ptr<Module> Module::loadDefault() {
    return loadBesideFile(ownFile);
}

Module::~Module() {
    if (!library_) return;
    Table& table = Table::get();
    const std::lock_guard lock(table.mutex);
    table.leave(*library_);
}

void Module::unload() {
    const Library& current = library();
    Table& table = Table::get();
    const std::lock_guard lock(table.mutex);
    if (current.canUnloadNow() != S_OK) {
        throw Error("the module '" + current.file.string() +
                    "' is still in use; release its objects before it is unloaded");
    }
    table.leave(*std::exchange(library_, nullptr));
}

bool Module::loaded() const {
    return library_ != nullptr;
}

const Module::Library& Module::library() const {
    if (!library_) throw Error("the module was unloaded");
    return *library_;
}

ComPtr<IClassFactory> Module::classFactory(const GUID& classId) const {
    ComPtr<IClassFactory> factory;
    require(library().getClassObject(classId, IID_IClassFactory, factory.putVoid()),
            "the module '" + file().string() + "' does not serve the class " + toText(classId));
    return factory;
}

void Module::registerClasses() const {
    requireRegistry(library().registerServer(), "cannot register '" + file().string() + "'");
}

void Module::unregisterClasses() const {
    requireRegistry(library().unregisterServer(), "cannot unregister '" + file().string() + "'");
}

bool Module::canUnload() const {
    return library().canUnloadNow() == S_OK;
}

HINSTANCE Module::instance() const {
    return library().image->instance();
}

const std::filesystem::path& Module::file() const {
    return library().file;
}

}  // namespace ruvex::runtime
