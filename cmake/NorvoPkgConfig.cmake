# What pkg-config tells of the installed libraries.

# norvo_pkg_config(NAME DESCRIPTION text [REQUIRES package] LIBRARIES target...
#                  [SYSTEM_LIBRARIES name...]): installs NAME.pc. All paths in it start from where
# it stands, so that an installation may be moved.
function(norvo_pkg_config name)
  cmake_parse_arguments(ARG "" "DESCRIPTION;REQUIRES" "LIBRARIES;SYSTEM_LIBRARIES" ${ARGN})
  # Two of the libraries need each other, so the linker is told to look at all of them again.
  list(TRANSFORM ARG_LIBRARIES PREPEND "-l")
  list(TRANSFORM ARG_SYSTEM_LIBRARIES PREPEND "-l")
  list(JOIN ARG_LIBRARIES " " libraries)
  list(JOIN ARG_SYSTEM_LIBRARIES " " system)
  string(STRIP "-Wl,--start-group ${libraries} -Wl,--end-group ${system}" libraries)
  file(RELATIVE_PATH prefix "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  string(REGEX REPLACE "/$" "" prefix "${prefix}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/NorvoPkgConfig.pc.in"
    "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc"
    DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endfunction()
