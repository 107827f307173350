# The public headers: what a program outside the project includes, as <norvo/room/Header.h>. Sources
# and headers of the project themselves include "room/Header.h".

# norvo_public_headers(LIBRARY...): sees to it that the public headers of these libraries are found
# in the build tree, below include/, as links, and installs them. The installed ones include each
# other as <norvo/room/Header.h>, so that a program may have a text/Text.h of its own.
function(norvo_public_headers)
  set(headers)
  foreach(library IN LISTS ARGN)
    get_property(more TARGET ${library} PROPERTY NORVO_PUBLIC_HEADERS)
    list(APPEND headers ${more})
  endforeach()

  set(links "${PROJECT_BINARY_DIR}/include/norvo")
  file(REMOVE_RECURSE "${links}")
  foreach(header IN LISTS headers)
    set(source "${PROJECT_SOURCE_DIR}/src/${header}")
    if(NOT EXISTS "${source}")
      message(FATAL_ERROR "${header} is public, and is not there.")
    endif()
    get_filename_component(folder "${links}/${header}" DIRECTORY)
    file(MAKE_DIRECTORY "${folder}")
    file(CREATE_LINK "${source}" "${links}/${header}" SYMBOLIC)
  endforeach()

  # Written when they are installed, so that none is older than its source.
  set(rewritten "${PROJECT_BINARY_DIR}/installed-headers")
  install(CODE "
    set(SOURCE \"${PROJECT_SOURCE_DIR}/src\")
    set(DESTINATION \"${rewritten}/norvo\")
    set(HEADERS \"${headers}\")
    include(\"${PROJECT_SOURCE_DIR}/cmake/RewriteIncludes.cmake\")" COMPONENT development)
  install(DIRECTORY "${rewritten}/norvo" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    COMPONENT development)
endfunction()
