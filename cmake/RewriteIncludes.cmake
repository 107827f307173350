# Writes HEADERS, paths below SOURCE, to the same paths below DESTINATION, with each
# `#include "room/Header.h"` as `#include <norvo/room/Header.h>`. Nothing else is there afterwards;
# a file that does not change keeps its time. A header that includes one that is not among HEADERS
# is an error.
cmake_policy(VERSION 3.25)

file(GLOB_RECURSE before RELATIVE "${DESTINATION}" "${DESTINATION}/*")
foreach(header IN LISTS before)
  if(NOT header IN_LIST HEADERS)
    file(REMOVE "${DESTINATION}/${header}")
  endif()
endforeach()

set(project_include "#include \"([^\"\n]+)\"")
foreach(header IN LISTS HEADERS)
  file(READ "${SOURCE}/${header}" text)
  string(REGEX MATCHALL "${project_include}" includes "${text}")
  foreach(include IN LISTS includes)
    string(REGEX REPLACE "${project_include}" "\\1" included "${include}")
    if(NOT included IN_LIST HEADERS)
      message(FATAL_ERROR "${header}, which is public, includes ${included}, which is not.")
    endif()
  endforeach()
  string(REGEX REPLACE "${project_include}" "#include <norvo/\\1>" text "${text}")
  set(old)
  if(EXISTS "${DESTINATION}/${header}")
    file(READ "${DESTINATION}/${header}" old)
  endif()
  if(NOT text STREQUAL old)
    file(WRITE "${DESTINATION}/${header}" "${text}")
  endif()
endforeach()
