// Runs a target over its corpus, where there is no fuzzer: `fuzz_TARGET FOLDER`.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/fuzz/fuzz.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.is_regular_file()) files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

/// The name comes first, so that it is the last line when the target ends the program.
void runFile(const fs::path& file) {
    std::fprintf(stderr, "%s\n", file.c_str());
    std::ifstream stream(file, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(stream), {});
    // A copy of exactly this size, so that the address sanitizer sees a step beyond its end.
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || !fs::is_directory(argv[1])) {
        std::fprintf(stderr, "usage: %s FOLDER, which holds the corpus\n", argv[0]);
        return 2;
    }
    const std::vector<fs::path> files = filesOf(argv[1]);
    std::ranges::for_each(files, runFile);
    std::printf("%zu files\n", files.size());
    return files.empty() ? 1 : 0;
}
