#include "farm/submission_lock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "farm/farm_error.h"
#include "files/whole_file.h"

namespace ruvex::farm {

SubmissionLock::SubmissionLock(const Layout& layout)
    : descriptor_(open(layout.lock().c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666)) {
    if (descriptor_ < 0) throw FarmError(files::writeFailure(layout.lock(), errno));
    // On a file system without locks, two submissions are noticed by the queue alone.
    if (flock(descriptor_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) return;
    close(descriptor_);
    throw FarmError("A submission or a cancellation of " + layout.folder().string() +
                    " is under way. Wait for its end.");
}

SubmissionLock::~SubmissionLock() {
    close(descriptor_);
}

}  // namespace ruvex::farm
