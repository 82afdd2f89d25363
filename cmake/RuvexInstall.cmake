# What an installation is made of, and the Debian package.

include(GNUInstallDirs)
set(RUVEX_DOCDIR "${CMAKE_INSTALL_DATAROOTDIR}/doc/ruvex")

# The module and the host's libraries are this program's own: they lie in a folder beside the
# system's, and the command finds them from where it lies itself.
set(RUVEX_PRIVATE_LIBDIR "lib/ruvex")
set_target_properties(ruvex PROPERTIES INSTALL_RPATH "$ORIGIN/../${RUVEX_PRIVATE_LIBDIR}")
set_target_properties(V_Ruvex dssdk dsvwr il PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ruvex RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS V_Ruvex dssdk dsvwr il LIBRARY DESTINATION ${RUVEX_PRIVATE_LIBDIR})
install(FILES "${PROJECT_SOURCE_DIR}/README.md" DESTINATION ${RUVEX_DOCDIR})
# Beside the README, which links to them.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" DESTINATION ${RUVEX_DOCDIR})
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION ${RUVEX_DOCDIR} RENAME copyright)

# The presets as files, written by the command itself.
set(preset_files "${PROJECT_BINARY_DIR}/presets")
add_custom_command(OUTPUT "${preset_files}/stamp"
  COMMAND ruvex presets --group presets --save-to "${preset_files}"
  COMMAND ${CMAKE_COMMAND} -E touch "${preset_files}/stamp"
  DEPENDS ruvex V_Ruvex
  VERBATIM)
add_custom_target(preset_files ALL DEPENDS "${preset_files}/stamp")
install(DIRECTORY "${preset_files}/" DESTINATION ${CMAKE_INSTALL_DATADIR}/ruvex/presets
  FILES_MATCHING PATTERN "*.json")

file(GLOB shipped_look_files CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/looks/library/*.json")

# The library of looks, where the command finds it from its own place.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/looks/library/" DESTINATION ${CMAKE_INSTALL_DATADIR}/ruvex/looks
  FILES_MATCHING PATTERN "*.json")

# The manual page and the shells' completions, from the command's own tables.
set(told "${PROJECT_BINARY_DIR}/told")
add_custom_command(OUTPUT "${told}/ruvex.1" "${told}/ruvex" "${told}/_ruvex" "${told}/ruvex.fish"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${told}"
  COMMAND ruvex help --man > "${told}/ruvex.1"
  COMMAND ruvex help --completion bash > "${told}/ruvex"
  COMMAND ruvex help --completion zsh > "${told}/_ruvex"
  COMMAND ruvex help --completion fish > "${told}/ruvex.fish"
  DEPENDS ruvex
  VERBATIM)
add_custom_target(told ALL DEPENDS "${told}/ruvex.1")
install(FILES "${told}/ruvex.1" DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES "${told}/ruvex" DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(FILES "${told}/_ruvex" DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES "${told}/ruvex.fish" DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

# The plug-in for frei0r hosts, which finds the module in ../ruvex, and its description for Kdenlive.
# All hosts search lib/frei0r-1, and few of them a folder for one kind of processor.
set(kdenlive_file "${PROJECT_BINARY_DIR}/kdenlive/frei0r_ruvex.xml")
add_custom_command(OUTPUT "${kdenlive_file}"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${PROJECT_BINARY_DIR}/kdenlive"
  COMMAND kdenlive_effect "${PROJECT_SOURCE_DIR}/looks/library" "${kdenlive_file}"
  DEPENDS kdenlive_effect ${shipped_look_files}
  VERBATIM)
add_custom_target(kdenlive_file ALL DEPENDS "${kdenlive_file}")
set_target_properties(ruvex_frei0r PROPERTIES INSTALL_RPATH "$ORIGIN/../ruvex")

# There are two packages with it: one with the command, and one with the plug-in and what it needs, without the
# command and the FFmpeg libraries. Files of the second are thus installed for both.
foreach(component Unspecified frei0r)
  install(TARGETS ruvex_frei0r LIBRARY DESTINATION lib/frei0r-1 COMPONENT ${component})
  install(FILES "${kdenlive_file}" DESTINATION ${CMAKE_INSTALL_DATADIR}/kdenlive/effects
    COMPONENT ${component})
endforeach()
install(TARGETS V_Ruvex dssdk dsvwr il LIBRARY DESTINATION ${RUVEX_PRIVATE_LIBDIR} COMPONENT frei0r)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/looks/library/" DESTINATION ${CMAKE_INSTALL_DATADIR}/ruvex/looks
  COMPONENT frei0r FILES_MATCHING PATTERN "*.json")
install(FILES "${PROJECT_SOURCE_DIR}/docs/plug-in-frei0r.md"
  "${PROJECT_SOURCE_DIR}/docs/parameters.md" "${PROJECT_SOURCE_DIR}/docs/parameter-files.md"
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/ruvex-frei0r COMPONENT frei0r)
install(FILES "${PROJECT_SOURCE_DIR}/docs/images/kdenlive.jpg"
  "${PROJECT_SOURCE_DIR}/docs/images/kdenlive-numbers.png"
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/ruvex-frei0r/images COMPONENT frei0r)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE"
  DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/ruvex-frei0r COMPONENT frei0r RENAME copyright)

# The bundle for OpenFX hosts has its own copy of everything, so that it can be put anywhere. Hosts
# search /usr/OFX/Plugins. Only `cmake --install --component openfx` installs it.
set(bundle OFX/Plugins/V_Ruvex.ofx.bundle/Contents)
set_target_properties(ruvex_openfx PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS ruvex_openfx V_Ruvex dssdk dsvwr il
  LIBRARY DESTINATION ${bundle}/Linux-x86-64 COMPONENT openfx EXCLUDE_FROM_ALL)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/looks/library/" DESTINATION ${bundle}/Resources/looks
  COMPONENT openfx EXCLUDE_FROM_ALL FILES_MATCHING PATTERN "*.json")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION ${bundle}/Resources
  COMPONENT openfx EXCLUDE_FROM_ALL)

# Everything that an installation needs, for the packages.
add_custom_target(installation
  DEPENDS ruvex V_Ruvex ruvex_frei0r ruvex_openfx preset_files told kdenlive_file)

# Takes away what the last `cmake --install` of this build has installed.
add_custom_target(uninstall
  COMMAND ${CMAKE_COMMAND} -DMANIFEST=${PROJECT_BINARY_DIR}/install_manifest.txt
          -P "${PROJECT_SOURCE_DIR}/cmake/Uninstall.cmake"
  VERBATIM)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ruvex)
set(CPACK_PACKAGE_VENDOR "The V_Ruvex authors")
set(CPACK_PACKAGE_CONTACT "The V_Ruvex authors <ruvex@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Makes clips look like faulty television")
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/bin")
# The command loads the FFmpeg libraries when it needs them. It is not linked with them, so that their packages
# are not found by themselves; a package has the name of its library, with the version of the interface.
set(ffmpeg_packages "")
foreach(library avfilter avformat avcodec swresample swscale avutil)
  string(REGEX MATCH "^[0-9]+" interface "${FFMPEG_lib${library}_VERSION}")
  list(APPEND ffmpeg_packages "lib${library}${interface}")
endforeach()
list(JOIN ffmpeg_packages ", " CPACK_DEBIAN_UNSPECIFIED_PACKAGE_DEPENDS)
# The labels of sheets; OpenGL and GLU, with which the on-screen controls are drawn. The module opens
# both when a host first shows the controls, and renders without them.
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_RECOMMENDS "fonts-dejavu-core, libopengl0, libglu1-mesa")
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL Unspecified frei0r openfx)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_NAME ruvex)
set(CPACK_DEBIAN_FREI0R_PACKAGE_NAME ruvex-frei0r)
set(CPACK_DEBIAN_OPENFX_PACKAGE_NAME ruvex-openfx)
set(CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION "The command ruvex, and the plug-in for frei0r hosts.")
set(CPACK_COMPONENT_FREI0R_DESCRIPTION
  "The effect in Kdenlive, melt, ffmpeg and GStreamer, without the command.")
set(CPACK_COMPONENT_OPENFX_DESCRIPTION "The effect in OpenFX hosts, without the command.")
set(CPACK_DEBIAN_OPENFX_PACKAGE_RECOMMENDS "libopengl0, libglu1-mesa")
# The first two have the same files at the same places.
set(CPACK_DEBIAN_FREI0R_PACKAGE_CONFLICTS ruvex)
set(CPACK_DEBIAN_FREI0R_PACKAGE_REPLACES ruvex)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_CONFLICTS ruvex-frei0r)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_REPLACES ruvex-frei0r)
set(CPACK_DEBIAN_UNSPECIFIED_PACKAGE_PROVIDES ruvex-frei0r)
set(CPACK_STRIP_FILES ON)
include(CPack)
