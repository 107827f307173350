# What the program tells of its build.

# norvo_version(TARGET): its sources know NORVO_VERSION and NORVO_PLATFORM, and those that include
# <NorvoCommit.h> NORVO_COMMIT. The latter is looked up by every build, and costs the compilation
# of these alone when it has changed.
function(norvo_version target)
  set(processor ${CMAKE_SYSTEM_PROCESSOR})
  if(WIN32)
    set(processor ${NORVO_WINDOWS_FOLDER})
  endif()
  target_compile_definitions(${target} PRIVATE
    NORVO_VERSION="${PROJECT_VERSION}"
    NORVO_PLATFORM="${CMAKE_SYSTEM_NAME} ${processor}")

  set(generated "${CMAKE_CURRENT_BINARY_DIR}/version")
  set(header "${generated}/NorvoCommit.h")
  set(write "${CMAKE_COMMAND}" -D "SOURCE=${PROJECT_SOURCE_DIR}" -D "HEADER=${header}"
    -P "${PROJECT_SOURCE_DIR}/cmake/WriteCommit.cmake")
  add_custom_target(${target}_commit COMMAND ${write} BYPRODUCTS "${header}"
    COMMENT "Looking up the commit" VERBATIM)
  add_dependencies(${target} ${target}_commit)
  target_include_directories(${target} PRIVATE "${generated}")
endfunction()
