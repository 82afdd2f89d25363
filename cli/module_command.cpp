#include "cli/module_command.h"

#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/messages.h"
#include "cli/text_table.h"
#include "cli/usage_error.h"
#include "files/words.h"
#include "runtime/module_report.h"

namespace ruvex::cli {
namespace {

using Json = nlohmann::ordered_json;
using runtime::Module;
using runtime::ModuleReport;

struct ModuleOptions {
    bool json = false;
    bool enter = false;
    bool remove = false;
};

constexpr const char* kModuleNotes =
    R"(A host finds the effect by its class and by the families that it is registered under. Without an
option nothing on the machine changes. The module is the one beside this command, or in ../lib/ruvex, or
else the one that is registered already. The registry is the file that RUVEX_REGISTRY names, or
ruvex/registry in the user's data folder (~/.local/share).)";

const char* yesOrNo(bool value) {
    return value ? "yes" : "no";
}

void printPart(const std::string& title, const std::vector<TextRow>& rows) {
    std::cout << '\n' << title << '\n' << alignedTable(rows, Align::Left);
}

void printClasses(const ModuleReport& report) {
    std::vector<TextRow> rows = {{"Class", "Made", "String", "Description"}};
    for (const auto& entry : report.classes) {
        rows.push_back({toText(entry.classId), yesOrNo(entry.served),
                        std::to_string(entry.stringId), entry.description});
    }
    printPart("Classes, in the order of registration", rows);
}

void printFamilies(const ModuleReport& report) {
    std::vector<TextRow> rows = {{"Family", "Version", "Name"}};
    for (const auto& entry : report.families) {
        rows.push_back({toText(entry.family), std::to_string(entry.version), entry.name});
    }
    printPart("Families of the effect", rows);
}

void printFormats(const ModuleReport& report) {
    std::vector<TextRow> rows = {{"Format", "Name"}};
    for (const auto& entry : report.formats) rows.push_back({toText(entry.format), entry.name});
    printPart("Formats that it renders", rows);
}

void printParameters(const ModuleReport& report) {
    std::vector<TextRow> rows = {{"Parameter", "Type", "Animated", "Name"}};
    for (const auto& entry : report.parameters) {
        rows.push_back({toText(entry.id), entry.type, yesOrNo(entry.animatable), entry.name});
    }
    printPart("Parameters", rows);
}

void printReport(const ModuleReport& report) {
    std::cout << report.name << ": " << report.description << '\n'
              << files::printable(report.file.string()) << '\n';
    printClasses(report);
    printFamilies(report);
    printFormats(report);
    printParameters(report);
}

Json toJson(const ModuleReport& report) {
    Json classes = Json::array();
    for (const auto& entry : report.classes) {
        classes.push_back({{"id", toText(entry.classId)},
                           {"made", entry.served},
                           {"string", entry.stringId},
                           {"description", entry.description}});
    }
    Json families = Json::array();
    for (const auto& entry : report.families) {
        families.push_back(
            {{"id", toText(entry.family)}, {"version", entry.version}, {"name", entry.name}});
    }
    Json formats = Json::array();
    for (const auto& entry : report.formats) {
        formats.push_back({{"id", toText(entry.format)}, {"name", entry.name}});
    }
    Json parameters = Json::array();
    for (const auto& entry : report.parameters) {
        parameters.push_back({{"id", toText(entry.id)},
                              {"type", entry.type},
                              {"animated", entry.animatable},
                              {"name", entry.name}});
    }
    return {
        {"file", report.file.string()}, {"name", report.name},  {"description", report.description},
        {"classes", classes},           {"families", families}, {"formats", formats},
        {"parameters", parameters}};
}

int runModule(const ModuleOptions& options) {
    if (options.json + options.enter + options.remove > 1) {
        throw UsageError("--json, --register and --unregister do not go together. Choose one.");
    }
    const auto module = Module::loadDefault();
    if (options.enter) {
        module->registerClasses();
    } else if (options.remove) {
        module->unregisterClasses();
    } else if (options.json) {
        std::cout << toJson(describeModule(*module)).dump(2) << '\n';
    } else {
        printReport(describeModule(*module));
    }
    return finishOutput();
}

}  // namespace

Command moduleCommand() {
    const auto options = std::make_shared<ModuleOptions>();
    return {.name = "module",
            .summary = "Tell what the module registers, or register it",
            .options = {{"--json", "", "The same as JSON", &options->json},
                        {"--register", "", "Enter the module in the registry", &options->enter},
                        {"--unregister", "", "Take it out of the registry", &options->remove}},
            .notes = kModuleNotes,
            .examples = {"ruvex module", "ruvex module --json"},
            .run = [options] { return runModule(*options); }};
}

}  // namespace ruvex::cli
