// Fixing the number of workers for the length of a test.

#pragma once

#include "imaging/threads.h"

namespace ruvex::test {

class Workers {
public:
    explicit Workers(std::int32_t count) : before_(workerCount()) { setWorkerCount(count); }
    ~Workers() { setWorkerCount(before_); }
    Workers(const Workers&) = delete;
    Workers& operator=(const Workers&) = delete;

private:
    std::int32_t before_;
};

}  // namespace ruvex::test
