# The target nlohmann_json::nlohmann_json, a library of headers.

if(NOT CMAKE_CROSSCOMPILING)
  find_package(nlohmann_json REQUIRED)
  return()
endif()

# Cross compilers take the native system's headers, and nothing else from where these lie.
find_path(RUVEX_JSON_HEADERS nlohmann/json.hpp NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/include/json")
file(CREATE_LINK "${RUVEX_JSON_HEADERS}/nlohmann" "${PROJECT_BINARY_DIR}/include/json/nlohmann" SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
target_include_directories(nlohmann_json::nlohmann_json SYSTEM INTERFACE "${PROJECT_BINARY_DIR}/include/json")
