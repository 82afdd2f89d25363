// Allocations that are counted, memory that runs out when a test says so, and memory that is not
// empty when it is new.

#pragma once

#include <cstddef>
#include <cstdint>

namespace ruvex::test {

/// As long as this lives, the allocations of this thread are counted, and the one with the number
/// `failing`, from 1 on, finds no memory; 0 lets all succeed. One at a time. What is allocated by
/// `new` in any library of the process counts.
class FailingNew {
public:
    explicit FailingNew(std::size_t failing);
    ~FailingNew();
    FailingNew(const FailingNew&) = delete;
    FailingNew& operator=(const FailingNew&) = delete;

    std::size_t allocations() const;
    /// Whether the failing one was reached.
    bool failed() const;
};

/// The same for all threads but this one, together: the workers that it starts. One at a time, and
/// not together with a FailingNew.
class FailingElsewhere {
public:
    explicit FailingElsewhere(std::size_t failing);
    ~FailingElsewhere();
    FailingElsewhere(const FailingElsewhere&) = delete;
    FailingElsewhere& operator=(const FailingElsewhere&) = delete;

    std::size_t allocations() const;
};

/// As long as this lives, all memory of `new` is full of `byte`, in all threads and all libraries
/// of the process. One at a time.
class FilledNew {
public:
    explicit FilledNew(unsigned char byte);
    ~FilledNew();
    FilledNew(const FilledNew&) = delete;
    FilledNew& operator=(const FilledNew&) = delete;
};

/// Bytes asked of `new` so far, in all threads and all libraries of the process.
std::uint64_t allocatedBytes();

}  // namespace ruvex::test
