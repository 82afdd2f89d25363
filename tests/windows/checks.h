// Checks that are counted, for programs without a test framework.

#pragma once

#include <cstdio>
#include <source_location>

namespace ruvex::test {

struct Checks {
    int made = 0;
    int failed = 0;

    /// `what` is what is to be true, after the statements before it. A failure is printed with its
    /// line.
    void expect(bool good, const char* what,
                std::source_location where = std::source_location::current()) {
        ++made;
        if (good) return;
        ++failed;
        std::printf("FAILED: %s:%u: %s\n", where.file_name(), static_cast<unsigned>(where.line()),
                    what);
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

/// Two hosts, and two effects in one, that use the registered module at the same time.
void checkHosts(Checks& checks);
/// One of two hosts, 1 or 2, in a process of its own.
void runHost(Checks& checks, int number);

/// Hosts that end while pages of the registered module are open.
void checkLeavingHosts(Checks& checks);
/// Such a host, in a process of its own: it ends in this way.
[[noreturn]] void leaveHost(const char* way);

/// A registered module whose file is replaced. Must come first in its process.
void checkReplacement(Checks& checks);

/// Registers and unregisters the registered module again, also from another folder.
void checkRegistration(Checks& checks);

/// The module after it was registered, and after it was taken out again.
void checkRegistered(Checks& checks);
void checkUnregistered(Checks& checks);

}  // namespace ruvex::test
