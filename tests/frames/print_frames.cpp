// Renders every named frame and prints its name with the digest of its bytes. What it prints is the
// same for every build of the effect: on any system, with any compiler, on any processor.

#include <cstdio>
#include <exception>
#include <set>

#include "tests/frames/frame_list.h"

namespace {

int printFrames() {
    std::set<std::string> looks;
    int frames = 0;
    int constant = 0;
    for (const ruvex::test::NamedFrame& frame : ruvex::test::namedFrames()) {
        const ruvex::test::FrameBytes rendered = frame.render();
        const bool flat = rendered.constant();
        std::printf("%s  %s%s\n", ruvex::test::digestOf(rendered.bytes).c_str(), frame.name.c_str(),
                    flat ? "  CONSTANT" : "");
        std::fflush(stdout);
        looks.insert(frame.look);
        ++frames;
        constant += flat;
    }
    // A reader that finds no such line knows that the program ended early, whatever its status.
    std::printf("end: looks=%d frames=%d constant=%d\n", static_cast<int>(looks.size()), frames,
                constant);
    return constant == 0 ? 0 : 1;
}

}  // namespace

int main() {
    try {
        return printFrames();
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 1;
    }
}
