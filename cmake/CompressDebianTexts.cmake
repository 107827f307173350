# Compresses what Debian wants compressed, in the folders of the packages that are about to be made.
file(GLOB_RECURSE texts
  "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/man/*.[1-9]"
  "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/doc/*/changelog"
  "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/usr/share/doc/*/changelog.Debian")
if(NOT texts)
  message(FATAL_ERROR "No texts to compress in ${CPACK_TEMPORARY_INSTALL_DIRECTORY}.")
endif()
foreach(text IN LISTS texts)
  execute_process(COMMAND gzip -9n "${text}" COMMAND_ERROR_IS_FATAL ANY)
endforeach()
