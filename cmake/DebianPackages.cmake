# The Debian packages, of the build of the preset: cpack --config cmake/DebianPackages.cmake
get_filename_component(root "${CMAKE_CURRENT_LIST_DIR}" DIRECTORY)
include("${root}/build/debian/CPackConfig.cmake")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY "${root}/out")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/CompressDebianTexts.cmake")

# Each package is a group of components.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING ONE_PER_GROUP)
set(CPACK_COMPONENTS_ALL program debian-program development debian-development)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER "${component}" name)
  set(CPACK_COMPONENT_${name}_GROUP development)
  if(component MATCHES program)
    set(CPACK_COMPONENT_${name}_GROUP program)
  endif()
endforeach()
set(CPACK_INSTALL_CMAKE_PROJECTS "${root}/build/debian" NorvoPlayList ALL /)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_NORVO_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# Each has its own summary, the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME norvo-playlists)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "move playlists and songs from one Windows PC to another
Finds the playlists (ASX, M3U, PLS and others) on an old PC's disk or a copy
of it, brings them and their songs to a new one, writes them anew for the
players there, and checks that each song is found again.

Disks may be mounted read-only, and single steps can be run on their own.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libnorvoplaylist-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "libtag1-dev, libpugixml-dev, libutf8proc-dev")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "playlists of Windows PCs - development files
Static libraries, headers, CMake and pkg-config files, examples and the API
reference of NorvoPlayList: one library that reads, judges and writes
playlists, and one that moves them with their songs from one PC to another.")
