// A report on a module: its registry entries and its effect's formats and parameters.

#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "runtime/module_loader.h"

namespace ruvex::runtime {

/// All texts are UTF-8.
struct ModuleReport {
    struct Class {
        GUID classId;
        unsigned stringId;        ///< of the description, among the module's strings
        std::string description;  ///< empty where the module has no such string
        bool served;              ///< the module makes objects of it
    };
    struct Family {
        GUID family;
        unsigned version;
        std::string name;  ///< the tool's name in this family
    };
    struct Format {
        GUID format;
        std::string name;
    };
    struct Parameter {
        GUID id;
        std::string name;
        std::string type;  ///< "real", "int" or "bool"
        bool animatable;
    };

    std::filesystem::path file;
    std::string name;         ///< as the host's tool list shows it
    std::string description;  ///< the same
    std::vector<Class> classes;
    std::vector<Family> families;
    std::vector<Format> formats;        ///< which the effect renders
    std::vector<Parameter> parameters;  ///< in the order of declaration
};

/// Registers the module in a temporary registry and reads the entries back; everything else is
/// asked of its effect. The machine's registry does not change. Throws StatusError when a call into
/// the module or the registry fails, and Error for an effect that lacks an interface. No other
/// thread of the process may use the registry meanwhile.
ModuleReport describeModule(const Module& module);

}  // namespace ruvex::runtime
