# Resource scripts, compiled with the cross tools' resource compiler. It wants a C preprocessor, and
# the compiler of this build serves, so that no cross compiler is needed.

find_program(RUVEX_WINDRES NAMES x86_64-w64-mingw32-windres REQUIRED)

# ruvex_compile_resources(SCRIPT RES DEPENDS...): a rule that compiles SCRIPT, in UTF-8, to RES. What
# SCRIPT includes is looked for beside RES, then beside SCRIPT.
function(ruvex_compile_resources script res)
  cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
  get_filename_component(script_folder "${script}" DIRECTORY)
  get_filename_component(res_folder "${res}" DIRECTORY)
  add_custom_command(
    OUTPUT "${res}"
    COMMAND "${RUVEX_WINDRES}" "--preprocessor=${CMAKE_CXX_COMPILER}"
            --preprocessor-arg=-E --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED
            -c 65001 -I "${res_folder}" -I "${script_folder}"
            "${script}" -O res -o "${res}"
    DEPENDS "${script}" ${arg_DEPENDS}
    COMMENT "Compiling ${script}"
    VERBATIM)
endfunction()
