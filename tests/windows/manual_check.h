// The help page's texts, and the manual that pages open.

#pragma once

#include "tests/windows/checks.h"
#include "tests/windows/opened_pages.h"

namespace ruvex::test {

void checkManual(Checks& checks, PageHost& host);

}  // namespace ruvex::test
