# Cross compilation to 64-bit ARM.

set(RUVEX_PROCESSOR aarch64)
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
