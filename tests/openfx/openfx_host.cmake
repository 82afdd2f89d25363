# The programs openfx_host and openfx_overlay, for Windows as well.
set(openfx_tests "${PROJECT_SOURCE_DIR}/tests/openfx")
set(openfx_common
  "${openfx_tests}/picture_file.cpp" "${openfx_tests}/test_card.cpp" "${openfx_tests}/typed_values.cpp"
  "${PROJECT_SOURCE_DIR}/tests/frames/digest.cpp")
add_executable(openfx_host
  "${openfx_tests}/openfx_host.cpp" "${openfx_tests}/host_options.cpp" ${openfx_common})
target_link_libraries(openfx_host PRIVATE ruvex_openfx_host ruvex_options)

add_executable(openfx_overlay "${openfx_tests}/openfx_overlay.cpp" ${openfx_common})
target_link_libraries(openfx_overlay PRIVATE ruvex_openfx_host ruvex_headless_surface ruvex_options)
