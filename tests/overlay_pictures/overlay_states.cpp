// Draws scripted states of the on-screen controls into pictures, and compares two such folders.
//
//   overlay_states [--reversed] FOLDER   draws each state into FOLDER, which is made if it is
//   missing overlay_states --compare A B         compares two folders (compare_states.h)
//
// It prints the list of the states (state_list.h) and writes it into the folder; --reversed draws
// them in the reverse order. The last line of output begins with "end: " if nothing has failed.

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>

#include "tests/overlay_pictures/compare_states.h"
#include "tests/overlay_pictures/state.h"
#include "tests/overlay_pictures/state_list.h"

namespace ruvex::test {
namespace {

std::vector<State> allStates() {
    std::vector<State> states = cropStates();
    for (const auto& more : {widgetStates(), shapeStates()}) {
        states.insert(states.end(), more.begin(), more.end());
    }
    return states;
}

StatePicture drawState(const State& state) {
    try {
        StatePicture picture = state.draw();
        picture.name = state.name;
        return picture;
    } catch (const std::exception& error) {
        throw std::runtime_error(state.name + ": " + error.what());
    }
}

void drawStates(const std::filesystem::path& folder, bool reversed) {
    std::filesystem::create_directories(folder);
    std::vector<State> states = allStates();
    if (reversed) std::ranges::reverse(states);
    std::ofstream list(folder / kStateList, std::ios::binary | std::ios::trunc);
    const auto print = [&](const std::string& lines) {
        std::cout << lines << std::flush;
        list << lines;
    };
    for (const State& state : states) {
        const StatePicture picture = drawState(state);
        writePicture(picture, folder);
        print(linesOf(picture));
    }
    print(endLine(states.size()));
    if (!list.flush()) throw std::runtime_error("cannot write the list of the states");
}

bool compare(const std::filesystem::path& first, const std::filesystem::path& second) {
    const int failed = compareStates(first, second);
    if (failed == 0) {
        std::printf("end: overlay_states equal=%d\n",
                    static_cast<int>(readStateList(first).size()));
    } else {
        std::printf("failed: %d states\n", failed);
    }
    return failed == 0;
}

int run(const std::vector<std::string>& words) {
    if (words.size() == 3 && words[0] == "--compare") return compare(words[1], words[2]) ? 0 : 1;
    const bool reversed = words.size() == 2 && words[0] == "--reversed";
    if (words.size() != 1 && !reversed) {
        std::cerr << "Usage: overlay_states [--reversed] FOLDER | --compare FOLDER FOLDER\n";
        return 2;
    }
    drawStates(words.back(), reversed);
    return 0;
}

}  // namespace
}  // namespace ruvex::test

int main(int count, char** words) {
    try {
        return ruvex::test::run({words + 1, words + count});
    } catch (const std::exception& error) {
        std::cout << "failed: " << error.what() << "\n";
        return 1;
    }
}
