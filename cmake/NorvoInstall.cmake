# What is installed, but for the program: the libraries behind the two targets that a consumer links, their public
# headers, and the packages that find_package(NorvoPlayList) and pkg-config find.
include(CMakePackageConfigHelpers)
include(NorvoLinkOrder)
include(NorvoPublicHeaders)
include(NorvoPkgConfig)

norvo_link_order(NorvoPlayList component component_system)
norvo_link_order(Move move move_system)
norvo_public_headers(${component} ${move})
norvo_pkg_config(norvoplaylist
  DESCRIPTION "${PROJECT_DESCRIPTION}"
  LIBRARIES ${component} SYSTEM_LIBRARIES ${component_system})
norvo_pkg_config(norvoplaylist-move
  DESCRIPTION "The move of playlists from one machine to another, on ${PROJECT_NAME}"
  REQUIRES "norvoplaylist = ${PROJECT_VERSION}"
  LIBRARIES ${move} SYSTEM_LIBRARIES ${move_system})

set(package "${CMAKE_INSTALL_LIBDIR}/cmake/NorvoPlayList")
install(TARGETS NorvoPlayList Move ${component} ${move} EXPORT NorvoPlayListTargets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(EXPORT NorvoPlayListTargets NAMESPACE NorvoPlayList:: DESTINATION "${package}"
  COMPONENT development)
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/NorvoPlayListConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/NorvoPlayListConfig.cmake"
  INSTALL_DESTINATION "${package}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/NorvoPlayListConfigVersion.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/NorvoPlayListConfig.cmake"
  "${PROJECT_BINARY_DIR}/NorvoPlayListConfigVersion.cmake"
  DESTINATION "${package}" COMPONENT development)

# The component "windows": the automation library (src/com adds its files), the program, and what
# comes with them. cmake/WindowsPackage.cmake joins those of both bitnesses.
if(WIN32)
  add_custom_target(norvo_windows ALL DEPENDS norvo_dll manual)
  if(TARGET norvo-playlists)
    add_dependencies(norvo_windows norvo-playlists)
    install(TARGETS norvo-playlists
      RUNTIME DESTINATION ${NORVO_WINDOWS_FOLDER} COMPONENT windows EXCLUDE_FROM_ALL)
  endif()
  install(DIRECTORY "${PROJECT_SOURCE_DIR}/examples/automation"
    DESTINATION examples COMPONENT windows EXCLUDE_FROM_ALL)
  install(DIRECTORY "${PROJECT_BINARY_DIR}/manual/"
    DESTINATION . COMPONENT windows EXCLUDE_FROM_ALL)
  install(FILES LICENSE
    DESTINATION . COMPONENT windows EXCLUDE_FROM_ALL)
  include(NorvoLicenses)
elseif(PROJECT_IS_TOP_LEVEL)
  include(NorvoDebian)
endif()
if(PROJECT_IS_TOP_LEVEL)
  include(CPack)
endif()
