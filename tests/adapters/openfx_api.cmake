# Compares our declarations of the OpenFX interface with the published headers, if there are any.
set(names "${PROJECT_SOURCE_DIR}/adapters/openfx/ofx_names.h")
set(functions "${PROJECT_SOURCE_DIR}/adapters/openfx/ofx_functions.h")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${names}" "${functions}")
ruvex_openfx_constants(constants "${functions}" "${names}")
ruvex_openfx_layouts(layouts "${functions}")
set(listing "${CMAKE_CURRENT_BINARY_DIR}/openfx_api_listing.cpp")
configure_file(openfx_api_listing.cpp.in "${listing}" @ONLY)

function(add_listing name)
  add_executable(${name} "${listing}")
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE ruvex_options)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
endfunction()

# As many lines as our declarations have, so that none is passed over.
add_listing(openfx_api_ours)
add_test(NAME openfx_api_is_listed
  COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/check_openfx_listing.sh" $<TARGET_FILE:openfx_api_ours>
    "${names}" "${functions}")
set_tests_properties(openfx_api_is_listed PROPERTIES LABELS unit)

if(RUVEX_OPENFX_HEADERS)
  add_listing(openfx_api_published)
  ruvex_openfx_api(openfx_api_published PRIVATE)
  add_test(NAME openfx_api_is_the_published_one
    COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/compare_openfx_listings.sh"
      $<TARGET_FILE:openfx_api_ours> $<TARGET_FILE:openfx_api_published>)
  set_tests_properties(openfx_api_is_the_published_one PROPERTIES LABELS unit)
endif()
