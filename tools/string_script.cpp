// Writes the module's string table as a resource script, in UTF-8, from the one table of strings.
//
//   string_script FILE

#include <cstdio>
#include <fstream>
#include <string>
#include <string_view>

#include "parameters/strings.h"

namespace ruvex {
namespace {

/// The text as a literal of the script's language, where a quote is written twice.
std::string quoted(std::string_view text) {
    std::string literal = "\"";
    for (const char c : text) {
        switch (c) {
            case '"':
                literal += "\"\"";
                break;
            case '\\':
                literal += "\\\\";
                break;
            case '\n':
                literal += "\\n";
                break;
            default:
                literal += c;
        }
    }
    return literal + "\"";
}

int write(const char* path) {
    std::ofstream script(path, std::ios::binary);
    script << "STRINGTABLE\nBEGIN\n";
    for (const strings::Entry& entry : strings::table()) {
        script << "    " << entry.id << ", " << quoted(entry.text) << '\n';
    }
    script << "END\n" << std::flush;
    if (script) return 0;
    std::fprintf(stderr, "%s cannot be written\n", path);
    return 1;
}

}  // namespace
}  // namespace ruvex

int main(int count, char** arguments) {
    if (count == 2) return ruvex::write(arguments[1]);
    std::fputs("usage: string_script FILE\n", stderr);
    return 2;
}
