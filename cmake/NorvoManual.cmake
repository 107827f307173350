# The manual as pages for a browser, by `cmake --build BUILD --target manual`: BUILD/manual.
find_package(Python3 COMPONENTS Interpreter)
if(NOT Python3_FOUND)
  return()
endif()
add_custom_target(manual
  COMMAND "${Python3_EXECUTABLE}" -B "${PROJECT_SOURCE_DIR}/scripts/make-manual-pages.py"
    "${PROJECT_BINARY_DIR}/manual"
  COMMENT "Writing the manual to ${PROJECT_BINARY_DIR}/manual"
  VERBATIM)
