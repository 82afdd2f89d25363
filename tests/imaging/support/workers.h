// A number of workers for the length of a test.

#pragma once

#include "imaging/threads.h"

namespace ruvex::test {

using Workers = WorkerCountScope;

}  // namespace ruvex::test
