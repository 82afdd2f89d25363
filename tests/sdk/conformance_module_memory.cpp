// The compiled resources, read from their file.

#include <fstream>
#include <iterator>
#include <vector>

#include "tests/sdk/window_statements.h"

HINSTANCE ruvex::test::conformanceModule() {
    static const std::vector<unsigned char> bytes = [] {
        std::ifstream file(RUVEX_CONFORMANCE_RES, std::ios::binary);
        return std::vector<unsigned char>(std::istreambuf_iterator<char>(file), {});
    }();
    static DSModuleInstance module{bytes.data(), bytes.data() + bytes.size()};
    return &module;
}
