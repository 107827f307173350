# Writes HEADER, which defines NORVO_COMMIT as the short name of the commit that SOURCE stands at; as
# an empty text when SOURCE is no repository of its own, such as an unpacked archive. It keeps its
# time when nothing changes.
cmake_policy(VERSION 3.25)
find_program(GIT git)

# git(VARIABLE word...): what git says of SOURCE, or nothing.
function(git variable)
  set(said)
  if(GIT)
    execute_process(COMMAND "${GIT}" -C "${SOURCE}" ${ARGN} RESULT_VARIABLE result
      OUTPUT_VARIABLE said ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT result EQUAL 0)
      set(said)
    endif()
  endif()
  set(${variable} "${said}" PARENT_SCOPE)
endfunction()

# Unpacked inside somebody else's repository it would get a commit of that one.
git(prefix rev-parse --show-cdup)
git(commit rev-parse --short=10 HEAD)
if(prefix)
  set(commit)
endif()

file(CONFIGURE OUTPUT "${HEADER}" CONTENT "#define NORVO_COMMIT \"@commit@\"\n" @ONLY)
