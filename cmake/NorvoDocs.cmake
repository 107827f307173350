# The API reference, by `cmake --build BUILD --target docs`: BUILD/docs/html/index.html.
find_program(NORVO_DOXYGEN doxygen)
if(NOT NORVO_DOXYGEN)
  return()
endif()
configure_file(docs/api/Doxyfile.in Doxyfile @ONLY)
add_custom_target(docs
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${PROJECT_BINARY_DIR}/docs"
  COMMAND "${NORVO_DOXYGEN}" "${PROJECT_BINARY_DIR}/Doxyfile"
  COMMAND ${CMAKE_COMMAND} -D "XML=${PROJECT_BINARY_DIR}/docs/xml"
    -P "${PROJECT_SOURCE_DIR}/cmake/CheckEnumDocs.cmake"
  COMMENT "Writing the API reference to ${PROJECT_BINARY_DIR}/docs/html/index.html"
  VERBATIM)
