// Checks that are counted, for programs without a test framework.

#pragma once

#include <cstdio>

namespace ruvex::test {

struct Checks {
    int made = 0;
    int failed = 0;

    /// `what` is what is to be true.
    void expect(bool good, const char* what) {
        ++made;
        if (good) return;
        ++failed;
        std::printf("FAILED: %s\n", what);
    }
};

/// The registry's store on this system, with entries of the check's own.
void checkRegistry(Checks& checks);

/// The same where a key is not to be written or read: it stays as it was.
void checkRegistryFailures(Checks& checks);

/// The host's controls in a dialog.
void checkControls(Checks& checks);

/// The property pages of the registered module.
void checkPages(Checks& checks);

/// The module after it was registered, and after it was taken out again.
void checkRegistered(Checks& checks);
void checkUnregistered(Checks& checks);

}  // namespace ruvex::test
