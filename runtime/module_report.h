// What a module says of itself: what it registers, and what its effect takes.

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
    std::vector<Format> formats;        ///< those that the effect renders
    std::vector<Parameter> parameters;  ///< in the order of declaration
};

/// Has the module register itself in a registry that is thrown away, and asks its effect the rest.
/// What is registered on the machine stays as it is. Throws StatusError for what the module or the
/// registry refuses, and Error for an effect that lacks an interface. Not beside other uses of the
/// registry in this process.
ModuleReport describeModule(const Module& module);

}  // namespace ruvex::runtime
