#include "cli/command_line.h"

int main(int argc, char** argv) {
    return ruvex::cli::runCommandLine(argc, argv);
}
