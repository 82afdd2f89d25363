# The program overlay_states, which draws scripted states of the on-screen controls. `module_source`
# says where the module comes from.

set(overlay_states "${PROJECT_SOURCE_DIR}/tests/overlay_pictures")
if(WIN32)
  set(page_window "${overlay_states}/page_window_windows.cpp")
else()
  set(page_window "${overlay_states}/page_window_memory.cpp")
endif()
add_executable(overlay_states
  "${overlay_states}/compare_states.cpp" "${overlay_states}/crop_states.cpp"
  "${overlay_states}/overlay_states.cpp" "${overlay_states}/shape_states.cpp"
  "${overlay_states}/state_list.cpp" "${overlay_states}/state_picture.cpp"
  "${overlay_states}/tree_scene.cpp" "${overlay_states}/widget_states.cpp"
  ${page_window} ${module_source})
target_include_directories(overlay_states PRIVATE "${PROJECT_SOURCE_DIR}")
target_link_libraries(overlay_states
  PRIVATE ruvex_overlay ruvex_headless_surface ruvex_runtime ruvex_parameters ruvex_options)
target_compile_definitions(overlay_states PRIVATE RUVEX_MODULE_FILE="$<TARGET_FILE:V_Ruvex>")
add_dependencies(overlay_states V_Ruvex)
