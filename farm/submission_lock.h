// One submission or cancellation of a farm job at a time.

#pragma once

#include "farm/layout.h"

namespace ruvex::farm {

/// Held as long as this lives. Released by the system too, when the program ends.
class SubmissionLock {
public:
    /// Throws FarmError if another program holds it.
    explicit SubmissionLock(const Layout& layout);
    ~SubmissionLock();
    SubmissionLock(const SubmissionLock&) = delete;
    SubmissionLock& operator=(const SubmissionLock&) = delete;

private:
    int descriptor_;
};

}  // namespace ruvex::farm
