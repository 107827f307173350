# The Windows package, of the builds of both presets: cpack --config cmake/WindowsPackage.cmake
get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
include("${root}/build/windows-x64/CPackConfig.cmake")

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_DIRECTORY "${root}/out")
set(CPACK_PACKAGE_FILE_NAME "NorvoPlayList-${CPACK_PACKAGE_VERSION}-windows")
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_STRIP_FILES ON)
# Build folder, project, component, place in the package.
set(CPACK_INSTALL_CMAKE_PROJECTS
  "${root}/build/windows-x64" NorvoPlayList windows /
  "${root}/build/windows-x86" NorvoPlayList windows /)
