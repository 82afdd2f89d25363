# The reader of a module's resources, a part of the host's shared library and on its own for tests.
set(sdk_resource_sources
  "${PROJECT_SOURCE_DIR}/sdk/resource_file.cpp" "${PROJECT_SOURCE_DIR}/sdk/resources.cpp")
ruvex_library(sdk_resources SOURCES ${sdk_resource_sources})
