# Installs the library into a fresh folder, builds a consumer against it, and runs it.
set(work "${BUILD_DIR}/installed-package-test")
file(REMOVE_RECURSE "${work}")

function(run)
  execute_process(COMMAND ${ARGN}
    RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${output}")
  endif()
endfunction()

run("${CMAKE_COMMAND}" --install "${BUILD_DIR}" --prefix "${work}/prefix")
run("${CMAKE_COMMAND}" -S "${CONSUMER_DIR}" -B "${work}/build" -G "${GENERATOR}"
  "-DCMAKE_PREFIX_PATH=${work}/prefix" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}")
run("${CMAKE_COMMAND}" --build "${work}/build")
run("${work}/build/consumer" "${work}/machine")
