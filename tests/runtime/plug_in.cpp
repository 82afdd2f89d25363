// A library in a folder of its own that looks for the module, as a plug-in in another application
// does. It has the runtime linked in, apart from the test program's.

#include <exception>
#include <string>

#include "runtime/module_loader.h"
#include "sdk/com/module_entry.h"

/// The file of the default module, or why there is none; valid until the next call.
DS_MODULE_ENTRY const char* plugInsModule() {
    static std::string answer;
    try {
        answer = ruvex::runtime::Module::loadDefault()->file().string();
    } catch (const std::exception& error) {
        answer = error.what();
    }
    return answer.c_str();
}
