// Allocations that are counted, and memory that runs out when a test says so.

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

/// Bytes asked of `new` so far, in all threads and all libraries of the process.
std::uint64_t allocatedBytes();

}  // namespace ruvex::test
