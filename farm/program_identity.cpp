#include "farm/program_identity.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "files/read_file.h"
#include "media/av_library.h"
#include "media/digest.h"
#include "runtime/module_loader.h"

namespace ruvex::farm {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kShownDigits = 16;

std::string digestOfFiles() {
    media::Digest digest;
    digest.add(files::readWhole("/proc/self/exe"));
    const fs::path module = runtime::Module::loadDefault()->file();
    digest.add(files::readWhole(module));
    for (const char* library : {"libdssdk.so", "libdsvwr.so", "libil.so"}) {
        const fs::path file = module.parent_path() / library;
        std::error_code error;
        if (fs::exists(file, error)) digest.add(files::readWhole(file));
    }
    return digest.finish().substr(0, kShownDigits);
}

}  // namespace

const ProgramIdentity& runningProgram() {
    static const ProgramIdentity program{RUVEX_VERSION, digestOfFiles(), media::libraryVersion()};
    return program;
}

std::string toText(const ProgramIdentity& program) {
    return program.version + " (build " + program.build + ", FFmpeg " + program.libraries + ")";
}

std::string hostName() {
    // As the scheduler calls it: what its other programs name it by.
    if (const char* node = std::getenv("SLURMD_NODENAME")) return node;
    std::array<char, 256> name{};
    return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "this machine";
}

}  // namespace ruvex::farm
