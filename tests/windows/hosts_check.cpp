// Two hosts, and two effects in one host, that use the module at the same time.

#include <string>
#include <vector>

#include "host/base/class_ids.h"
#include "pages/resources/resource_ids.h"
#include "sdk/viewer/viewer_controller.h"
#include "tests/windows/checks.h"
#include "tests/windows/child_process.h"
#include "tests/windows/opened_pages.h"

namespace ruvex::test {
namespace {

/// An effect whose pages are all open. They use its tool.
class OpenEffect {
public:
    OpenEffect() {
        for (const PageKind& kind : kPages) pages_.push_back(host_.open(kind.classId));
    }

    /// Types a contrast, and chooses a black and white set, or a tinted one.
    void edit(const char* contrast, int set) {
        type(main(), IDC_TV_CONTRAST, contrast);
        choose(main(), IDC_TV_TYPE, set);
    }

    /// Whether effect and pages have these values.
    bool has(const wchar_t* contrast, int set) {
        return textOf(item(main(), IDC_TV_CONTRAST)) == contrast &&
               host_.value(ParameterId::TvContrast) == std::stod(contrast) &&
               host_.value(ParameterId::TvType) == set &&
               shown(main(), IDC_TINT_CHIP) == (set == 2);
    }

private:
    const Page& main() { return pages_.front(); }

    PageHost host_;
    std::vector<Page> pages_;
};

std::size_t tools() {
    return VWControllerContexts().size();
}

std::wstring wide(int number) {
    return std::to_wstring(number);
}

/// The events of one of the two hosts.
struct HostEvents {
    explicit HostEvents(int number)
        : opened(L"host-opened-" + wide(number)),
          edited(L"host-edited-" + wide(number)),
          finished(L"host-finished-" + wide(number)),
          crashed(L"host-crashed-" + wide(number)) {}

    SharedEvent opened, edited, finished, crashed;
};

void checkEffectsOfOneHost(Checks& checks) {
    OpenEffect second;
    {
        OpenEffect first;
        checks.expect(tools() == 2, "two effects have a tool each");
        first.edit("11", 1);
        second.edit("22", 2);
        checks.expect(first.has(L"11", 1) && second.has(L"22", 2),
                      "the pages of each edit its own effect");
    }
    checks.expect(tools() == 1, "the first one's tool goes with its pages");
    checks.expect(second.has(L"22", 2), "the second effect stays as it is");
    second.edit("33", 1);
    checks.expect(second.has(L"33", 1), "and can be edited");
}

void checkTwoHosts(Checks& checks) {
    const HostEvents first(1), second(2);
    const SharedEvent alone(L"host-alone");
    const ChildProcess leaver(L"host 1");
    const ChildProcess stayer(L"host 2");
    checks.expect(first.edited.wait() && second.edited.wait(), "two hosts use the module at once");
    checks.expect(leaver.endsWith(0) && first.finished.isSet(), "one leaves");
    checks.expect(!second.finished.isSet(), "the other one is still there");
    alone.set();
    checks.expect(stayer.endsWith(0) && second.finished.isSet(), "and goes on");
    checks.expect(!first.crashed.isSet() && !second.crashed.isSet(), "none of them crashes");
}

}  // namespace

void runHost(Checks& checks, int number) {
    const HostEvents own(number), other(3 - number);
    const SharedEvent alone(L"host-alone");
    reportCrashes(own.crashed);
    {
        OpenEffect effect;
        checks.expect(tools() == 1, "a host has the tool of its effect alone");
        own.opened.set();
        checks.expect(other.opened.wait(), "the other host has its own");
        const bool first = number == 1;
        effect.edit(first ? "-10" : "70", number);
        own.edited.set();
        checks.expect(other.edited.wait(), "the other host edits too");
        checks.expect(effect.has(first ? L"-10" : L"70", number), "another effect than this one");
        if (!first) {
            checks.expect(alone.wait(), "the first host leaves");
            checks.expect(effect.has(L"70", 2), "which changes nothing here");
            effect.edit("80", 1);
            checks.expect(effect.has(L"80", 1), "this host goes on");
        }
    }
    checks.expect(tools() == 0, "the tool goes with the pages");
    if (checks.failed == 0) own.finished.set();
}

void checkHosts(Checks& checks) {
    checkEffectsOfOneHost(checks);
    checks.expect(tools() == 0, "no tool is left");
    checkTwoHosts(checks);
}

}  // namespace ruvex::test
