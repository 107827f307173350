# What the Debian packages have beyond what is installed elsewhere: the papers of each, and in the
# development package the examples and the API reference. Joined by cmake/DebianPackages.cmake.
set(CPACK_NORVO_MAINTAINER "The Norvo Media Playlist Parser authors <authors@norvo-playlists.invalid>")
# Of the commit, where SOURCE_DATE_EPOCH tells it.
string(TIMESTAMP NORVO_DEBIAN_DATE "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in changelog.Debian @ONLY)

# norvo_debian_papers(COMPONENT PACKAGE)
function(norvo_debian_papers component package)
  set(folder "${CMAKE_INSTALL_DATADIR}/doc/${package}")
  install(FILES packaging/debian/copyright "${PROJECT_BINARY_DIR}/changelog.Debian"
      docs/THIRD-PARTY-NOTICES.md SECURITY.md
    DESTINATION "${folder}" COMPONENT ${component} EXCLUDE_FROM_ALL)
  install(FILES CHANGELOG.md RENAME changelog
    DESTINATION "${folder}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()
norvo_debian_papers(debian-program norvo-playlists)
norvo_debian_papers(debian-development libnorvoplaylist-dev)

set(folder "${CMAKE_INSTALL_DATADIR}/doc/norvo-playlists")
install(DIRECTORY "${PROJECT_BINARY_DIR}/manual/"
  DESTINATION "${folder}/html" COMPONENT debian-program EXCLUDE_FROM_ALL)

set(folder "${CMAKE_INSTALL_DATADIR}/doc/libnorvoplaylist-dev")
install(DIRECTORY examples/cpp/
  DESTINATION "${folder}/examples" COMPONENT debian-development EXCLUDE_FROM_ALL)
install(DIRECTORY "${PROJECT_BINARY_DIR}/docs/html"
  DESTINATION "${folder}" COMPONENT debian-development EXCLUDE_FROM_ALL)
