#include "media/av_loading.h"

#include <dlfcn.h>
#include <string>

#include "media/media_error.h"

namespace ruvex::media {

void* loadedFunction(const char* library, const char* function) {
    void* const loaded = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    if (loaded == nullptr) {
        const char* const reason = dlerror();
        throw MediaError("The library " + std::string(library) +
                         " of FFmpeg cannot be loaded: " + (reason ? reason : "unknown reason") +
                         ". Install the FFmpeg libraries that this program was built for.");
    }
    void* const address = dlsym(loaded, function);
    if (address == nullptr) {
        throw MediaError("The library " + std::string(library) + " of FFmpeg has no function " +
                         function +
                         ". Install the FFmpeg libraries that this program was built for.");
    }
    return address;
}

}  // namespace ruvex::media
