# Cross compilation for another kind of processor with Debian's compiler. Expects RUVEX_PROCESSOR, the
# processor's name in the names of the compiler and of its folder.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${RUVEX_PROCESSOR})
set(CMAKE_CXX_COMPILER ${RUVEX_PROCESSOR}-linux-gnu-g++)
set(CMAKE_ASM_COMPILER ${RUVEX_PROCESSOR}-linux-gnu-gcc)

set(CMAKE_FIND_ROOT_PATH /usr/${RUVEX_PROCESSOR}-linux-gnu)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
