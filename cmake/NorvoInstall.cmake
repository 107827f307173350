# The package that find_package(NorvoPlayList) finds.
include(CMakePackageConfigHelpers)

install(EXPORT NorvoPlayListTargets NAMESPACE NorvoPlayList::
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/NorvoPlayList")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/NorvoPlayListConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/NorvoPlayListConfig.cmake"
  INSTALL_DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/NorvoPlayList")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/NorvoPlayListConfigVersion.cmake"
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/NorvoPlayListConfig.cmake"
  "${PROJECT_BINARY_DIR}/NorvoPlayListConfigVersion.cmake"
  DESTINATION "${CMAKE_INSTALL_LIBDIR}/cmake/NorvoPlayList")
