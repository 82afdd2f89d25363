# How every target of the project is compiled, and short forms for the kinds of target there are.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

# The pictures are exact: no contraction to fused multiply-add, no reordering of float arithmetic.
# -O3 only adds widening of flat loops, which keeps every bit.
add_library(ruvex_options INTERFACE)
target_compile_options(ruvex_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual
  -ffp-contract=off -fno-fast-math
  # clang takes it for a wish to have float exceptions exactly; -fno-fast-math is enough there.
  $<$<CXX_COMPILER_ID:GNU>:-fno-unsafe-math-optimizations>
  # Some of GCC's pragmas for loops.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-unknown-pragmas>
  $<$<BOOL:${RUVEX_WERROR}>:-Werror>)
if(WIN32)
  # All of its names, in wide characters, and no macros in the way of std::min and std::max.
  target_compile_definitions(ruvex_options INTERFACE
    UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0601)
else()
  # The system's own interfaces have no destructor there.
  target_compile_options(ruvex_options INTERFACE -Wnon-virtual-dtor)
  # A file with one such symbol never leaves memory, and a module must, when its host lets it go.
  target_compile_options(ruvex_options INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)
endif()
# Where several files are compiled as one, a local name may shadow another file's, and a source file
# counts as a header. A build of each file by itself finds what these warnings look for.
add_library(ruvex_unity_options INTERFACE)
target_compile_options(ruvex_unity_options INTERFACE
  -Wno-shadow $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
if(RUVEX_SANITIZE)
  target_compile_options(ruvex_options INTERFACE
    -fsanitize=${RUVEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ruvex_options INTERFACE -fsanitize=${RUVEX_SANITIZE})
  target_compile_definitions(ruvex_options INTERFACE RUVEX_SANITIZED)
endif()
if(CMAKE_UNITY_BUILD)
  target_link_libraries(ruvex_options INTERFACE ruvex_unity_options)
endif()
if(RUVEX_FUZZ)
  # Counts which branches are taken; the fuzzer itself is linked into its targets alone.
  target_compile_options(ruvex_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# ruvex_vector_sources(VARIABLE SOURCES... OPTIONS...): for each source, which is named without its ending, gives
# in VARIABLE its version for x86-64 processors with AVX2 (_avx2.cpp) and that for 512-bit vectors
# (_avx512.cpp), and nothing in builds for other kinds of processor. Which version of a loop runs is
# chosen at run time (imaging/kernels/dispatch.h). -fno-trapping-math lets loops with choices in them be
# widened; no value changes.
function(ruvex_vector_sources variable)
  cmake_parse_arguments(arg "" "" "OPTIONS" ${ARGN})
  set(${variable} "" PARENT_SCOPE)
  if(NOT CMAKE_SYSTEM_PROCESSOR MATCHES "^(x86_64|AMD64|amd64)$")
    return()
  endif()
  set(avx2_options -mavx2)
  set(avx512_options -mavx512f -mavx512bw -mavx512dq -mavx512vl -mprefer-vector-width=512)
  set(sources "")
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Its own header of 512-bit vectors leaves variables undefined on purpose.
    list(APPEND avx512_options -Wno-maybe-uninitialized)
  endif()
  if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC takes the stack for aligned to a vector there, but Windows aligns it to 16 bytes.
    list(APPEND arg_OPTIONS -Wa,-muse-unaligned-vector-move)
  endif()
  foreach(source ${arg_UNPARSED_ARGUMENTS})
    foreach(version avx2 avx512)
      set_source_files_properties(${source}_${version}.cpp PROPERTIES
        COMPILE_OPTIONS "${${version}_options};-fno-trapping-math;${arg_OPTIONS}")
      list(APPEND sources ${source}_${version}.cpp)
    endforeach()
  endforeach()
  set(${variable} ${sources} PARENT_SCOPE)
endfunction()

# ruvex_include_root(VARIABLE PATH): gives in VARIABLE an include folder of the build from which one
# folder or file of the sources can be included, by its PATH from the root, and nothing else.
function(ruvex_include_root variable path)
  string(REPLACE "/" "_" name "${path}")
  set(root "${PROJECT_BINARY_DIR}/include/${name}")
  cmake_path(GET path PARENT_PATH parent)
  file(MAKE_DIRECTORY "${root}/${parent}")
  file(CREATE_LINK "${PROJECT_SOURCE_DIR}/${path}" "${root}/${path}" SYMBOLIC)
  set(${variable} "${root}" PARENT_SCOPE)
endfunction()

# ruvex_export_folder(TARGET): lets TARGET and what links it include the current folder. A target thus
# sees its own folder and those of the libraries that it links, and an include that goes against the
# order of layers does not compile.
function(ruvex_export_folder target)
  cmake_path(RELATIVE_PATH CMAKE_CURRENT_SOURCE_DIR BASE_DIRECTORY "${PROJECT_SOURCE_DIR}"
    OUTPUT_VARIABLE folder)
  ruvex_include_root(root "${folder}")
  target_include_directories(${target} PUBLIC "${root}")
endfunction()

# ruvex_library(NAME SOURCES... LIBS...): a static library of one folder.
function(ruvex_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_link_libraries(${name} PUBLIC ${arg_LIBS} PRIVATE ruvex_options)
  ruvex_export_folder(${name})
endfunction()

# ruvex_compile_as_one(TARGET...): compiles several files of each target as one, since their headers take
# longer to compile than their own code. A local name may be used once in such a target. Not on Windows,
# whose headers define macros with the names of variables.
function(ruvex_compile_as_one)
  if(WIN32)
    return()
  endif()
  foreach(target ${ARGN})
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON)
    target_link_libraries(${target} PRIVATE ruvex_unity_options)
  endforeach()
endfunction()

# ruvex_shared_library(NAME DEFINE SOURCES... LIBS...): a shared library; DEFINE is set while it is
# itself compiled and turns its imports into exports.
function(ruvex_shared_library name define)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
  add_library(${name} SHARED ${arg_SOURCES})
  target_compile_definitions(${name} PRIVATE ${define})
  if(WIN32)
    # The names that the host's libraries have there.
    set_target_properties(${name} PROPERTIES PREFIX "")
    if(name MATCHES "^ds")
      set_target_properties(${name} PROPERTIES OUTPUT_NAME "${name}10")
    endif()
  endif()
  target_link_libraries(${name} PUBLIC ${arg_LIBS} PRIVATE ruvex_options)
  ruvex_export_folder(${name})
endfunction()

# ruvex_test(NAME LABEL SOURCES... LIBS...): one GoogleTest program; LABEL is unit, property or picture.
function(ruvex_test name label)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  # The headers of GoogleTest take longer to compile than a test's own code. Operators for memory are
  # compiled apart from the code that uses them.
  set_target_properties(${name} PROPERTIES UNITY_BUILD ON)
  set(memory_operators ${arg_SOURCES})
  list(FILTER memory_operators INCLUDE REGEX "watched_new")
  set_source_files_properties(${memory_operators} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_link_libraries(${name}
    PRIVATE ${arg_LIBS} ruvex_options ruvex_unity_options GTest::gmock GTest::gtest_main)
  if(RUVEX_SANITIZE)
    # Instrumented tests take three times as long to optimise as they save by it.
    target_compile_options(${name} PRIVATE -O0)
  elseif(label STREQUAL "unit")
    # Most of what such a test runs is in the libraries; its own code is compiled once and runs briefly.
    target_compile_options(${name} PRIVATE -O1)
  endif()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES LABELS ${label} TIMEOUT 600)
endfunction()
