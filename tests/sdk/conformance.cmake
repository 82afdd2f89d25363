# The program window_conformance, which prints what the window functions do: the system's own on
# Windows, elsewhere those of windows in memory.

set(conformance "${PROJECT_SOURCE_DIR}/tests/sdk")
add_executable(window_conformance
  "${conformance}/window_conformance.cpp" "${conformance}/window_statements.cpp")
target_link_libraries(window_conformance PRIVATE dssdk ruvex_options)
if(WIN32)
  enable_language(RC)
  target_sources(window_conformance PRIVATE
    "${conformance}/conformance_module_windows.cpp" "${conformance}/conformance.rc")
else()
  set(conformance_res "${CMAKE_CURRENT_BINARY_DIR}/conformance.res")
  ruvex_compile_resources("${conformance}/conformance.rc" "${conformance_res}")
  target_sources(window_conformance PRIVATE
    "${conformance}/conformance_module_memory.cpp" "${conformance_res}")
  target_compile_definitions(window_conformance PRIVATE "RUVEX_CONFORMANCE_RES=\"${conformance_res}\"")
endif()
