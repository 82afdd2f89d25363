#include "tests/openfx/attack/target.h"

#include <algorithm>
#include <string_view>

#include "tests/openfx/attack/tampering.h"

namespace ruvex::ofxhost::attack {
namespace {

OfxStatus failAtRandom(const HostCall&) {
    const Hostility& own = hostility();
    const bool fails = own.random && own.failing > 0 && own.random->oneIn(own.failing);
    return fails ? own.random->oddStatus() : kOfxStatOK;
}

void tamperAtRandom(PropertySet& set) {
    const Hostility& own = hostility();
    if (!own.random || own.tampering == 0 || !own.random->oneIn(own.tampering)) return;
    tamperWith(set, *own.random);
}

HostTraits hostileTraits() {
    HostTraits traits;
    traits.intercept = failAtRandom;
    traits.tamper = tamperAtRandom;
    return traits;
}

}  // namespace

Hostility& hostility() {
    static thread_local Hostility own;
    return own;
}

Target::Target(const std::string& file)
    : binary(file), host(hostileTraits()), plugIn(host, *binary.plugIn(0), file) {
    plugIn.prepare();
}

bool Target::faulty() const {
    static constexpr std::string_view kInexcusable[] = {"an exception left", "a write beside",
                                                        "pixels outside", "a release of",
                                                        "images were not released"};
    return std::ranges::any_of(host.faults(), [](const std::string& fault) {
        return std::ranges::any_of(
            kInexcusable, [&](std::string_view begin) { return fault.starts_with(begin); });
    });
}

}  // namespace ruvex::ofxhost::attack
