# Cross compilation to IBM Z, whose words begin with the highest byte.

set(RUVEX_PROCESSOR s390x)
include("${CMAKE_CURRENT_LIST_DIR}/debian-cross.cmake")
