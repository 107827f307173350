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

# The component "windows": the automation library (src/com adds its files), the program, and what
# comes with them. cmake/WindowsPackage.cmake joins those of both bitnesses.
if(WIN32)
  add_custom_target(norvo_windows DEPENDS norvo_dll)
  if(TARGET norvo-playlists)
    add_dependencies(norvo_windows norvo-playlists)
    install(TARGETS norvo-playlists
      RUNTIME DESTINATION ${NORVO_WINDOWS_FOLDER} COMPONENT windows EXCLUDE_FROM_ALL OPTIONAL)
  endif()
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/automation"
    DESTINATION examples COMPONENT windows EXCLUDE_FROM_ALL)
  install(FILES "${PROJECT_SOURCE_DIR}/docs/automation.md"
    DESTINATION docs COMPONENT windows EXCLUDE_FROM_ALL)
  install(FILES README.md CHANGELOG.md LICENSE
    DESTINATION . COMPONENT windows EXCLUDE_FROM_ALL)
  if(PROJECT_IS_TOP_LEVEL)
    include(CPack)
  endif()
endif()
