// Draws all stored pictures anew, into the folder named on the command line. Run by hand alone,
// through scripts/redraw-test-pictures.

#include <filesystem>
#include <iostream>

#include "tests/pictures/picture_case.h"
#include "tests/pictures/stored_picture.h"

namespace ruvex::test {
namespace {

template <class P>
void redraw(const std::filesystem::path& folder, const PictureCase& look) {
    for (const int workers : kWorkerCounts) {
        writeStored(folder / (storedName<P>(look, workers) + ".png"), renderCase<P>(look, workers));
        if (!look.byWorkers) return;
    }
}

}  // namespace
}  // namespace ruvex::test

int main(int argc, char** argv) {
    using namespace ruvex::test;
    if (argc != 2) {
        std::cerr << "Usage: redraw_pictures FOLDER\n";
        return 2;
    }
    try {
        for (const PictureCase& look : pictureCases()) {
            redraw<ruvex::Rgba8>(argv[1], look);
            redraw<ruvex::RgbaS214>(argv[1], look);
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
