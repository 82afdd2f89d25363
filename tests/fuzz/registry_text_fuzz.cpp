// The registry's file.

#include "sdk/registry/registry_contents.h"
#include "tests/fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = ruvex::fuzz::textOf(data, size);
    const auto contents = ruvex::parseRegistry(text);
    if (contents) {
        ruvex::fuzz::demand(ruvex::registryText(*contents) == text,
                            "only what is written so is read");
    }
    return 0;
}
